// The text pages of the SHADOW panel.
#include "views/shadow/shadow_page.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "tests/ui/offscreen.h"
#include "tests/ui/text_probe.h"
#include "toolkit/text.h"

namespace veloria {
namespace {

using test::isColor;
using test::isText;
using test::kBackdrop;
using test::over;
using test::Picture;

constexpr SDL_Color kHeading{255, 215, 80, 255};
constexpr SDL_Color kBodyText{200, 200, 220, 255};
constexpr SDL_Color kDim{160, 155, 180, 200};

class ShadowPage : public test::DrawTest {
  protected:
    explicit ShadowPage(int w = 900, int h = 700) : DrawTest(w, h) {}

    Picture draw(const SDL_Rect& body, float time, int page = 1) {
        screen.clear(kBackdrop);
        drawShadowPage(context, body, time, page);
        return picture();
    }
    Picture drawFigure(const SDL_Rect& body, float time) {
        const Fonts none{};
        context.fonts = &none;
        Picture seen = draw(body, time);
        context.fonts = &fonts;
        return seen;
    }
    // The texts in the order of their first drawing.
    [[nodiscard]] std::vector<TextEntry> drawnTexts() const {
        return {cache.entries.rbegin(), cache.entries.rend()};
    }
    // Some pixel within one of the point has the colour: lines between whole pixels may round either way.
    static bool closeBy(const Picture& seen, double x, double y, SDL_Color wanted) {
        for (int dy = -1; dy <= 1; ++dy) {
            for (int dx = -1; dx <= 1; ++dx) {
                const SDL_Color at =
                    seen.at(static_cast<int>(std::lround(x)) + dx, static_cast<int>(std::lround(y)) + dy);
                if (isColor(at, wanted, 3)) return true;
            }
        }
        return false;
    }
};

// Wide enough for the figure to stand clear of the text: middle (460, 400), radius 155.
constexpr SDL_Rect kWide{10, 30, 900, 620};
constexpr double kFx = 460;
constexpr double kFy = 30 + 60 + 310;
constexpr double kR = 155;

struct Place {
    double x;
    double y;
};
Place onCircle(double degrees, double radius) {
    return {kFx + std::cos(degrees * M_PI / 180) * radius, kFy - std::sin(degrees * M_PI / 180) * radius};
}
Place between(Place a, Place b, double t) {
    return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t};
}
SDL_Color faded(SDL_Color colour, double pulse, double full) {
    colour.a = static_cast<Uint8>(pulse * full);
    return colour;
}
constexpr SDL_Color kGold{255, 215, 0, 255};
constexpr SDL_Color kViolet{180, 140, 255, 255};
constexpr SDL_Color kGreen{60, 200, 180, 255};

TEST_F(ShadowPage, SaysItsTextToTheLetter) {
    draw(kWide, 0.0f);
    std::string words;
    for (const TextEntry& entry : drawnTexts())
        words += (words.empty() ? "" : "\n") + entry.text;
    std::uint64_t hash = 0xcbf29ce484222325u;
    for (const char letter : words)
        hash = (hash ^ static_cast<unsigned char>(letter)) * 0x100000001b3u;
    // Of the page's text with "555 Hz" after the fourth group, taken outside this program.
    EXPECT_EQ(hash, 0x465481573073e435u) << words;
    EXPECT_EQ(drawnTexts().size(), 22u);
}

TEST_F(ShadowPage, TheLinesAreFourteenApartAndTheGroupsTenMore) {
    const Picture seen = draw(kWide, 0.0f);
    TTF_Font* font = fonts.fontLabel;
    const auto shows = [&](const char* text, int y, SDL_Color colour) {
        EXPECT_TRUE(isText(seen, kBackdrop, text, 20, 30 + y, font, colour));
    };
    shows("555 QUINTESSENCE — Fifth Element Bridge", 12, kHeading);
    shows("Mean of 9 Solfeggio = 555 Hz exactly", 26, kBodyText);
    shows("DR(555) = 6 (Tesla key)", 54, kDim);
    shows("GEOMETRIC PROGRESSION", 78, kHeading);
    shows("666 (Cube/Earth) = 6 x 111", 120, kBodyText);
    shows("Each step = +111 (circulant eigenvalue)", 134, kDim);
    shows("DODECAHEDRON PROPERTIES", 158, kHeading);
    shows("30 edges = 3 x 10 (Yud completion)", 200, kBodyText);
    shows("Each face = pentagon (5 sides) -> 5-5-5", 214, kDim);
    shows("555 + 445 = 1000", 238, kHeading);
    shows("Mean Solfeggio + Total Kathara Ebced = 1000", 252, kBodyText);
    shows("3x37 (eigenvalue) + F(11) (Fibonacci prime) = 200", 266, kDim);
    shows("VITRUVIAN CONNECTION", 284, kHeading);
    shows("Mem Sofit(600) - 555 = 45 degrees", 298, kBodyText);
    shows("45 = Vitruvian arm angle = 360/8", 312, kBodyText);
    shows("45 = 1+2+3+4+5+6+7+8+9 (digit sum)", 326, kDim);
}

TEST_F(ShadowPage, ThePentagonStandsOnItsSide) {
    for (const float time : {0.0f, 1.0f, 2.5f}) {
        const Picture seen = draw(kWide, time);
        const double pulse = std::sin(1.5 * static_cast<double>(time)) * 0.3 + 0.7;
        const SDL_Color wanted = over(faded(kGold, pulse, 120), kBackdrop);
        for (int side = 0; side < 5; ++side) {
            const Place a = onCircle(90 + 72 * side, kR);
            const Place b = onCircle(90 + 72 * (side + 1), kR);
            for (const double t : {0.2, 0.5, 0.8}) {
                const Place at = between(a, b, t);
                EXPECT_TRUE(closeBy(seen, at.x, at.y, wanted)) << side << ", " << t << ", " << time;
            }
        }
    }
}

TEST_F(ShadowPage, ThePentagramJoinsEveryOtherCorner) {
    const Picture seen = draw(kWide, 1.0f);
    const double pulse = std::sin(1.5) * 0.3 + 0.7;
    const SDL_Color wanted = over(faded(kViolet, pulse, 80), kBackdrop);
    for (int side = 0; side < 5; ++side) {
        const Place a = onCircle(90 + 72 * side, kR);
        const Place b = onCircle(90 + 72 * (side + 2), kR);
        for (const double t : {0.15, 0.25, 0.75, 0.85}) {  // outside the inner pentagon
            const Place at = between(a, b, t);
            EXPECT_TRUE(closeBy(seen, at.x, at.y, wanted)) << side << ", " << t;
        }
    }
}

TEST_F(ShadowPage, TheInnerPentagonStandsOnItsCornerOverThePentagram) {
    const Picture seen = draw(kWide, 0.0f);
    const SDL_Color alone = over(faded(kGreen, 0.7, 100), kBackdrop);
    const SDL_Color crossing = over(faded(kGreen, 0.7, 100), over(faded(kViolet, 0.7, 80), kBackdrop));
    // Both have a level line through the same rows, and there they lie on each other.
    const int level = static_cast<int>(kFy) - static_cast<int>(kR * 0.382 * std::sin(54 * M_PI / 180));
    EXPECT_TRUE(isColor(seen.at(static_cast<int>(kFx), level), crossing, 3));
    EXPECT_TRUE(
        isColor(seen.at(static_cast<int>(kFx) + 80, level), over(faded(kViolet, 0.7, 80), kBackdrop)));
    for (int side = 0; side < 5; ++side) {
        const Place a = onCircle(270 + 72 * side, kR * 0.382);
        const Place b = onCircle(270 + 72 * (side + 1), kR * 0.382);
        const Place at = between(a, b, 0.5);
        EXPECT_TRUE(closeBy(seen, at.x, at.y, alone) || closeBy(seen, at.x, at.y, crossing)) << side;
    }
}

TEST_F(ShadowPage, TwelveDiscsGoRoundTheFigure) {
    for (const float time : {0.0f, 1.0f}) {
        const Picture seen = draw(kWide, time);
        const double pulse = std::sin(1.5 * static_cast<double>(time)) * 0.3 + 0.7;
        const SDL_Color wanted = over(faded(kGold, pulse, 180), kBackdrop);
        for (int i = 0; i < 12; ++i) {
            const double angle = (90.0 + 30 * i) * M_PI / 180;
            // A whisker to the outside, so that a sine of nearly one does not lose its last pixel.
            const int x = static_cast<int>(kFx) + static_cast<int>(std::cos(angle) * (kR + 10.0001));
            const int y = static_cast<int>(kFy) - static_cast<int>(std::sin(angle) * (kR + 10.0001));
            EXPECT_TRUE(isColor(seen.at(x, y), wanted, 3)) << i;
            EXPECT_TRUE(isColor(seen.at(x + 2, y + 2), wanted, 3)) << i;
            EXPECT_EQ(seen.at(x + 5, y), kBackdrop) << i;
            const Place gap = onCircle(105 + 30 * i, kR + 10);
            EXPECT_EQ(seen.at(static_cast<int>(gap.x), static_cast<int>(gap.y)), kBackdrop) << i;
        }
        EXPECT_TRUE(isColor(seen.at(460, 400 - 165 - 3), wanted, 3)) << "radius 3";
        EXPECT_EQ(seen.at(460, 400 - 165 - 4), kBackdrop);
    }
}

TEST_F(ShadowPage, ItsFrequencyStandsInTheMiddle) {
    const SDL_Point at = test::centredPlace("555 Hz", {460, 400, 0, 0}, fonts.fontLabel);
    EXPECT_TRUE(isText(draw(kWide, 0.0f), kBackdrop, "555 Hz", at.x, at.y, fonts.fontLabel, kGold));
}

TEST_F(ShadowPage, TheRadiusIsAQuarterOfTheShorterSideInWholePixels) {
    // Middle (111, 463), radius 55, not 55.75; the level side of the pentagon 44 below the middle, not 45.
    const Picture seen = drawFigure({0, 0, 223, 806}, 0.0f);
    const SDL_Color wanted = over(faded(kGold, 0.7, 120), kBackdrop);
    EXPECT_TRUE(isColor(seen.at(111, 463 + 44), wanted, 3));
    EXPECT_EQ(seen.at(111, 463 + 45), kBackdrop);
}

// In the panel's default body the figure runs through the text.
constexpr SDL_Rect kDefaultBody{0, 0, 476, 494};

TEST_F(ShadowPage, TheFigureLiesOverTheUpperText) {
    const Picture seen = draw(kDefaultBody, 0.0f);
    screen.clear(kBackdrop);
    DrawText(context, "3x37 (eigenvalue) + F(11) (Fibonacci prime) = 200", 10, 266, fonts.fontLabel, kDim);
    const Picture text = picture();
    const SDL_Color line = faded(kViolet, 0.7, 80);
    int inked = 0;
    for (int x = 130; x < 190; ++x) {  // the pentagram's level line goes through row 307 - 36
        EXPECT_TRUE(isColor(seen.at(x, 271), over(line, text.at(x, 271)), 3)) << x;
        inked += isColor(text.at(x, 271), kBackdrop, 20) ? 0 : 1;
    }
    EXPECT_GT(inked, 5);
}

TEST_F(ShadowPage, TheLowerTextLiesOverTheFigure) {
    const Picture figure = drawFigure(kDefaultBody, 0.0f);
    const Picture seen = draw(kDefaultBody, 0.0f);
    const char* text = "45 = Vitruvian arm angle = 360/8";
    EXPECT_TRUE(isText(seen, figure, text, 10, 312, fonts.fontLabel, kBodyText));
    int crossed = 0;
    for (int y = 312; y < 324; ++y) {
        for (int x = 10; x < 170; ++x)
            crossed += figure.at(x, y) == kBackdrop ? 0 : 1;
    }
    EXPECT_GT(crossed, 8);
}

TEST_F(ShadowPage, TheMatrixPageHasItsTitleAlone) {
    const Picture seen = draw(kWide, 1.0f, 0);
    const char* title = "666 SHADOW MATRIX — Full S3 Permutations";
    EXPECT_TRUE(isText(seen, kBackdrop, title, 20, 42, fonts.fontLabel, kHeading));
    ASSERT_EQ(drawnTexts().size(), 1u);
    EXPECT_EQ(drawnTexts()[0].text, title);
    for (int y = 60; y < seen.h; ++y) {
        for (int x = 0; x < seen.w; ++x)
            ASSERT_EQ(seen.at(x, y), kBackdrop);
    }
}

TEST_F(ShadowPage, ABodyWithoutSizeHasNoLines) {
    for (const SDL_Rect& body : {SDL_Rect{50, 50, 0, 0}, SDL_Rect{50, 50, 400, 0}, SDL_Rect{50, 50, 0, -400},
                                 SDL_Rect{50, 50, -9, -30}, SDL_Rect{50, 50, 3, 3}}) {
        clearTextCache(cache);
        draw(body, 0.3f);
        draw(body, 0.3f, 0);
        ASSERT_EQ(drawnTexts().size(), 1u) << body.w << " by " << body.h;
        EXPECT_EQ(drawnTexts()[0].text, "555 Hz");
    }
}

}  // namespace
}  // namespace veloria
