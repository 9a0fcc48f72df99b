// The human figure seen straight on, on a plain ground.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "tests/views/scene/scene_fixture.h"
#include "views/scene/vitruvian_figure.h"

namespace veloria {
namespace {

using test::isColor;
using test::kBackdrop;
using test::over;
using test::Picture;
using test::Seen;

class Figure : public test::SceneTest {
  protected:
    Figure() : SceneTest(640, 600) { view.zoom = 8.0f; }

    const Picture& draw() {
        drawVitruvianFigure(canvas());
        seenPicture = picture();
        return seenPicture;
    }
    [[nodiscard]] SDL_Color at(double x, double y, int dx = 0, int dy = 0) const {
        const Seen place = seen({static_cast<float>(x), static_cast<float>(y), 0.0f});
        return seenPicture.at(place.x + dx, place.y + dy);
    }
    [[nodiscard]] Seen place(double x, double y) const {
        return seen({static_cast<float>(x), static_cast<float>(y), 0.0f});
    }
    // Whether a stroke passes within a pixel of the point.
    [[nodiscard]] bool strokeNear(double x, double y) const {
        for (int dy = -1; dy <= 1; ++dy) {
            for (int dx = -1; dx <= 1; ++dx) {
                if (!isColor(at(x, y, dx, dy), kBackdrop)) return true;
            }
        }
        return false;
    }

    // Whether a pixel next to the point has this colour over the plain ground.
    [[nodiscard]] bool strokeOf(double x, double y, SDL_Color colour, int tolerance = 2) const {
        for (int dy = -1; dy <= 1; ++dy) {
            for (int dx = -1; dx <= 1; ++dx) {
                if (isColor(at(x, y, dx, dy), over(colour, kBackdrop), tolerance)) return true;
            }
        }
        return false;
    }
    // Whether a bluish text with this corner left its mark wherever its letters are, be it on other strokes.
    [[nodiscard]] bool inked(const std::string& text, int x, int y, SDL_Color colour) {
        screen.clear(kBackdrop);
        DrawText(context, text, x, y, fonts.fontTiny, colour);
        const Picture wanted = picture();
        int letters = 0;
        for (int py = y; py < y + 16; ++py) {
            for (int px = std::max(x, 0); px < x + 160; ++px) {
                if (wanted.at(px, py).b < kBackdrop.b + 25) continue;
                ++letters;
                if (seenPicture.at(px, py).b < kBackdrop.b + 10) return false;
            }
        }
        return letters > 10;
    }

    Picture seenPicture;
};

TEST_F(Figure, BonesAreThreePixelsInTheBodysColour) {
    draw();
    const SDL_Color body = over({220, 195, 140, 160}, kBackdrop);
    // The forearm, level: between elbow and hand.
    EXPECT_TRUE(isColor(at(1.9, 1.335), body));
    EXPECT_TRUE(isColor(at(1.9, 1.335, 0, 1), body));
    EXPECT_TRUE(isColor(at(1.9, 1.335, 0, -1), body));
    EXPECT_EQ(at(1.9, 1.335, 0, 2), kBackdrop);
    for (int dy = -1; dy <= 1; ++dy)
        EXPECT_TRUE(isColor(at(-1.9, 1.335, 0, dy), body)) << dy;
    // The thigh, steep.
    EXPECT_TRUE(strokeNear(0.1958, -0.60075));
    EXPECT_TRUE(strokeNear(-0.1346, -1.66875));
}

TEST_F(Figure, TheRibsAreThinAndFainter) {
    draw();
    for (const double side : {-1.0, 1.0}) {
        EXPECT_TRUE(strokeOf(side * 0.4784, 1.22375, {220, 195, 140, 90}));
        EXPECT_TRUE(strokeOf(side * 0.24, 0.8226, {220, 195, 140, 90}));
    }
    EXPECT_FALSE(strokeNear(-0.45, 0.95));
}

TEST_F(Figure, TheHeadIsARingOfTwelveChords) {
    draw();
    for (int i = 0; i < 12; ++i) {
        const double angle = i * M_PI / 6;
        EXPECT_TRUE(strokeNear(0.278125 * std::cos(angle), 1.9491 + 0.278125 * std::sin(angle))) << i;
    }
    EXPECT_FALSE(strokeNear(0.14, 1.85)) << "hollow";
}

TEST_F(Figure, TheSecondPoseSpreadsLegsByThirtyAndArmsByTwentyFiveDegrees) {
    draw();
    for (const double side : {-1.0, 1.0}) {
        EXPECT_TRUE(strokeNear(side * 0.9 * 0.5, -0.9 * 0.8660254));
        EXPECT_TRUE(strokeNear(side * 2.0 * 0.5, -2.0 * 0.8660254));
        // On this slope its three lines are one, and an alpha of 90 thrice is one of 186.
        EXPECT_TRUE(
            strokeOf(side * (0.55625 + 1.2 * 0.9063078), 1.335 + 1.2 * 0.4226183, {200, 180, 130, 186}, 5));
        EXPECT_FALSE(strokeNear(side * 2.5 * 0.5, -2.5 * 0.8660254)) << "beyond the foot";
    }
    // From foot to foot: three rows of its own colour.
    const SDL_Color spread = over({100, 220, 100, 90}, kBackdrop);
    EXPECT_TRUE(isColor(at(0.6, -2.225 * 0.8660254), spread));
    EXPECT_TRUE(isColor(at(0.6, -2.225 * 0.8660254, 0, 1), spread));
}

TEST_F(Figure, SquareCircleAndStarSurroundIt) {
    draw();
    const SDL_Color square = over({200, 170, 80, 50}, kBackdrop);
    EXPECT_TRUE(isColor(at(2.225, -1.2), square));
    EXPECT_TRUE(isColor(at(-2.225, -1.2), square));
    EXPECT_TRUE(isColor(at(1.2, -2.225), square));
    EXPECT_TRUE(isColor(at(-1.2, 2.225), square));
    EXPECT_EQ(at(2.225, -1.2, 1, 0), kBackdrop) << "thin";
    // The circle goes through the raised hand; its middle is the navel.
    const double radius = std::hypot(0.55625 + 1.66875 * 0.9063078, 1.335 + 1.66875 * 0.4226183 - 0.445);
    EXPECT_NEAR(radius, 2.612, 0.001);
    for (int i = 0; i < 48; ++i) {
        const double angle = i * M_PI / 24;
        EXPECT_TRUE(strokeNear(radius * std::cos(angle), 0.445 + radius * std::sin(angle))) << i;
    }
    // The star's corners stand at every 60 degrees from straight down; its sides join them.
    for (int k = 0; k < 6; ++k) {
        const double t = k * M_PI / 3 - M_PI / 2 + M_PI / 6;
        const double middle = 1.1125 * std::cos(M_PI / 6);
        EXPECT_TRUE(strokeNear(middle * std::cos(t), 0.445 + middle * std::sin(t))) << k;
    }
}

TEST_F(Figure, CircleStarAndScaleAreFaint) {
    draw();
    const double chord = 2.6118 * std::cos(M_PI / 48);
    EXPECT_TRUE(
        strokeOf(chord * std::cos(M_PI / 48), 0.445 + chord * std::sin(M_PI / 48), {80, 160, 220, 50}));
    // Below the navel to the right: a side of the star lies alone.
    const double middle = 1.1125 * std::cos(M_PI / 6);
    EXPECT_TRUE(strokeOf(middle * 0.5, 0.445 - middle * 0.8660254, {160, 100, 220, 35}));
    EXPECT_TRUE(strokeOf(-middle * 0.5, 0.445 - middle * 0.8660254, {160, 100, 220, 35}));
    bool marked = false;
    for (double x = -2.37; x < -2.18; x += 0.01)
        marked = marked || strokeOf(x, -1.1125, {140, 130, 160, 70});
    EXPECT_TRUE(marked);
}

TEST_F(Figure, TheScaleIsReadable) {
    draw();
    const struct {
        double fraction;
        const char* text;
    } rows[] = {
        {0, "0 FEET"},        {0.25, "1/4 KNEE"},  {0.5, "1/2 GROIN (Square)"}, {0.6, "3/5 NAVEL (Circle)"},
        {0.75, "3/4 NIPPLE"}, {0.875, "7/8 CHIN"}, {1.0, "1 HEAD TOP"}};
    for (const auto& row : rows) {
        const Seen corner = place(-2.525, row.fraction * 4.45 - 2.225);
        EXPECT_TRUE(inked(row.text, corner.x, corner.y - 4, {140, 130, 160, 100})) << row.text;
    }
}

TEST_F(Figure, EachMarkerHasItsDiscInItsColour) {
    draw();
    const SDL_Color navel = at(0, 0.445);
    EXPECT_GT(navel.r, 225);
    EXPECT_GT(navel.g, 225);
    EXPECT_LT(navel.b, 215) << "the bright middle";
    const SDL_Color heart = at(0, 0.55625, -3, 0);
    EXPECT_GT(heart.r, heart.g + 40);
    const SDL_Color crown = at(0, 2.225, -3, 1);
    EXPECT_GT(crown.b, 160) << "over the head's ring, which is brown";
    EXPECT_EQ(at(0, 2.225, -3, -4), kBackdrop) << "beyond its radius";
    EXPECT_FALSE(isColor(at(0, 0, 4, 0), kBackdrop));
}

TEST_F(Figure, AllLabelsShowThoughTwoLieCloseTogether) {
    const Picture with = draw();
    screen.clear(kBackdrop);
    TTF_Font* tiny = fonts.fontTiny;
    fonts.fontTiny = nullptr;
    const Picture without = draw();
    fonts.fontTiny = tiny;
    const struct {
        double y;
        const char* text;
    } labels[] = {{0.445, "322 NAVEL"}, {0.0, "244 GROIN"}, {0.55625, "333 HEART"}, {2.225, "444 CROWN"}};
    for (const auto& label : labels) {
        const Seen marker = place(0, label.y);
        const SDL_Point size = measureText(tiny, label.text);
        int inked = 0;
        for (int x = marker.x + 8; x < marker.x + 8 + size.x; ++x) {
            int column = 0;
            for (int y = marker.y - 5; y < marker.y - 5 + size.y; ++y)
                column += with.at(x, y) == without.at(x, y) ? 0 : 1;
            inked += column > 0 ? 1 : 0;
        }
        EXPECT_GT(inked, size.x / 2) << label.text;
        EXPECT_TRUE(with.at(marker.x + 6, marker.y) == without.at(marker.x + 6, marker.y))
            << "text begins later";
    }
}

TEST_F(Figure, TheNavelsDiscBreathes) {
    pulse = 1.0f;
    const SDL_Color full = [&] {
        draw();
        return at(0, 0.445, -5, 3);
    }();
    screen.clear(kBackdrop);
    pulse = 0.4f;
    draw();
    EXPECT_GT(full.r, at(0, 0.445, -5, 3).r + 30);
}

TEST_F(Figure, TheProportionsStandAtTheLeft) {
    draw();
    const struct {
        double fraction;
        const char* text;
    } rows[] = {{0, "0 FEET"},
                {0.25, "1/4 KNEE"},
                {0.6, "3/5 NAVEL (Circle)"},
                {0.875, "7/8 CHIN"},
                {1.0, "1 HEAD TOP"}};
    for (const auto& row : rows) {
        const double y = row.fraction * 4.45 - 2.225;
        EXPECT_TRUE(strokeNear(-2.3, y)) << row.text;
        const Seen text = place(-2.525, y);
        int lit = 0;
        for (int py = text.y - 4; py < text.y + 8; ++py) {
            for (int px = text.x; px < text.x + 12; ++px)
                lit += isColor(seenPicture.at(px, py), kBackdrop, 8) ? 0 : 1;
        }
        EXPECT_GT(lit, 6) << row.text;
    }
    const Seen feet = place(-2.525, -2.225);
    EXPECT_TRUE(showsText(seenPicture, "0", feet.x, feet.y - 4, fonts.fontTiny, {140, 130, 160, 100}));
}

TEST_F(Figure, WithoutAFontDiscsStayAndTheScaleGoes) {
    closeAllFonts();
    draw();
    EXPECT_FALSE(strokeNear(-2.3, -1.1125)) << "1/4 KNEE";
    EXPECT_FALSE(strokeNear(-2.525, -1.1125));
    EXPECT_GT(at(0, 0.445).g, 225);
    const SDL_Color groin = at(0, 0, 3, 1);
    EXPECT_FALSE(isColor(groin, kBackdrop));
}

TEST_F(Figure, IsFlatAndSeenEdgeOnFromTheSide) {
    view.azimuth = 90.0f;
    closeAllFonts();
    draw();
    for (int y = 0; y < seenPicture.h; ++y) {
        for (int x = 0; x < seenPicture.w; ++x) {
            if (std::abs(x - 320) > 8) {
                ASSERT_EQ(seenPicture.at(x, y), kBackdrop) << x << ", " << y;
            }
        }
    }
    EXPECT_GT(touched(), 300);
}

}  // namespace
}  // namespace veloria
