#include "views/sacred/sacred_geometry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numbers>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/ui/text_probe.h"
#include "toolkit/panel_frame.h"

namespace veloria {
namespace {

using test::isColor;
using test::isFilled;
using test::isText;
using test::kBackdrop;
using test::over;
using test::Picture;

constexpr SDL_Rect kBody{10, 20, 420, 400};  // middle at (220, 220), radius 152
constexpr double kRadius = 152.0;
constexpr SDL_Color kGreen{30, 240, 60, 255};

struct Place {
    double x;
    double y;
};
// `ninths` clockwise from the top.
Place place(double ninths, double radius = kRadius, Place middle = {220.0, 220.0}) {
    const double angle = ninths * 2.0 * std::numbers::pi / 9.0;
    return {middle.x + radius * std::sin(angle), middle.y - radius * std::cos(angle)};
}

// A time at which the pulse of a frequency stands in its middle: its brightness is the envelope's alone.
float calmTime(float hz) {
    return -hz * 0.01f / 3.0f;
}

class Sacred : public test::DrawTest {
  protected:
    explicit Sacred(int w = 440, int h = 440) : DrawTest(w, h) {}

    Picture draw(const std::vector<ColouredNote>& notes = {}, float time = 0.0f, const SDL_Rect& body = kBody,
                 SDL_Texture* backdrop = nullptr) {
        screen.clear(kBackdrop);
        drawSacredGeometry(context, body, notes, time, backdrop);
        return picture();
    }
    static SDL_Color near(const Picture& seen, Place at) {
        return seen.at(static_cast<int>(at.x), static_cast<int>(at.y));
    }
    // The share of a chord's places, its ends left out, at which or beside which `isInk` holds.
    static double inked(const Picture& seen, Place from, Place to,
                        const std::function<bool(SDL_Color)>& isInk) {
        int hits = 0;
        for (int i = 20; i <= 80; ++i) {
            const double t = i / 100.0;
            const int x = static_cast<int>(from.x + t * (to.x - from.x));
            const int y = static_cast<int>(from.y + t * (to.y - from.y));
            bool hit = false;
            for (int d = -1; d <= 1; ++d)
                hit = hit || isInk(seen.at(x + d, y)) || isInk(seen.at(x, y + d));
            hits += hit ? 1 : 0;
        }
        return hits / 61.0;
    }
};

TEST(SacredLayoutRule, PointsStandFortyDegreesApartFromTheTopClockwise) {
    const SacredLayout layout = sacredLayout(kBody);
    EXPECT_FLOAT_EQ(layout.centre.x, 220.0f);
    EXPECT_FLOAT_EQ(layout.centre.y, 220.0f);
    EXPECT_FLOAT_EQ(layout.radius, 152.0f);
    for (std::size_t i = 0; i < 9; ++i) {
        const Place point = place(static_cast<double>(i));
        EXPECT_NEAR(layout.points[i].x, point.x, 0.01) << i;
        EXPECT_NEAR(layout.points[i].y, point.y, 0.01) << i;
        const Place digit = place(static_cast<double>(i), kRadius + 16.0);
        EXPECT_NEAR(layout.digits[i].x, digit.x, 1.01) << i;
        EXPECT_NEAR(layout.digits[i].y, digit.y, 1.01) << i;
    }
    EXPECT_NEAR(layout.points[0].y, 68.0f, 0.01);
    EXPECT_GT(layout.points[1].x, 220.0f) << "clockwise";
}

TEST(SacredLayoutRule, GoesByTheShorterSideAndTheBodysMiddle) {
    const SacredLayout wide = sacredLayout({0, 0, 1001, 300});
    EXPECT_FLOAT_EQ(wide.centre.x, 500.5f);
    EXPECT_FLOAT_EQ(wide.radius, 114.0f);
    const SacredLayout tall = sacredLayout({0, 0, 200, 777});
    EXPECT_FLOAT_EQ(tall.centre.y, 388.5f);
    EXPECT_FLOAT_EQ(tall.radius, 76.0f);
}

TEST(SacredLayoutRule, TheBackdropIsASquareInTheMiddle) {
    const SDL_Rect square = sacredLayout({2, 24, 416, 394}).backdrop;  // 2 * 394 * 0.38 = 299.44
    EXPECT_EQ(square.w, 299);
    EXPECT_EQ(square.h, 299);
    EXPECT_EQ(square.x, 2 + (416 - 299) / 2);
    EXPECT_EQ(square.y, 24 + (394 - 299) / 2);
}

TEST_F(Sacred, TheCirclesLieInTheirColours) {
    const Picture seen = draw();
    const SDL_Color outer = over({60, 45, 90, 160}, kBackdrop);
    const SDL_Color inner = over({40, 30, 65, 80}, kBackdrop);
    // Whole-degree places where a corner of the circle lies: every third, every sixth.
    for (const double degrees : {18.0, 63.0, 99.0, 144.0, 180.0, 219.0, 261.0, 342.0}) {
        EXPECT_TRUE(isColor(near(seen, place(degrees / 40.0)), outer, 3)) << degrees;
        EXPECT_EQ(near(seen, place(degrees / 40.0, kRadius + 6.0)), kBackdrop) << degrees;
    }
    for (const double degrees : {6.0, 78.0, 90.0, 180.0, 186.0, 270.0})
        EXPECT_TRUE(isColor(near(seen, place(degrees / 40.0, kRadius * 0.15)), inner, 3)) << degrees;
    EXPECT_EQ(near(seen, {220.0, 220.0}), kBackdrop);
}

TEST_F(Sacred, ACircleIsOneClosedLineWithoutBrighterJoints) {
    const Picture seen = draw();
    const SDL_Color once = over({60, 45, 90, 160}, kBackdrop);
    const SDL_Color twice = over({60, 45, 90, 160}, once);
    int joints = 0;
    int single = 0;
    for (int y = 0; y < seen.h; ++y) {
        for (int x = 0; x < seen.w; ++x) {
            if (std::abs(std::hypot(x + 0.5 - 220.0, y + 0.5 - 220.0) - kRadius) > 1.5) continue;
            joints += isColor(seen.at(x, y), twice, 3) ? 1 : 0;
            single += isColor(seen.at(x, y), once, 6) ? 1 : 0;
        }
    }
    EXPECT_GT(single, 600);
    EXPECT_LT(joints, 40) << "the lines of the figure that end on the circle";
}

TEST_F(Sacred, TheTriangleAndTheHexadJoinThePointsAndNoOtherLineDoes) {
    const std::set<std::pair<int, int>> triangle = {{0, 3}, {3, 6}, {0, 6}};
    const std::set<std::pair<int, int>> hexad = {{1, 4}, {2, 4}, {2, 8}, {5, 8}, {5, 7}, {1, 7}};
    const Picture seen = draw();
    const auto isLike = [](SDL_Color wanted) {
        return [=](SDL_Color colour) { return static_cast<bool>(isColor(colour, wanted, 3)); };
    };
    // Over their glow, (22, 16, 35) * 30 / 255 and (18, 14, 28) * 25 / 255.
    const SDL_Color triangleInk = over({55, 42, 85, 90}, {92, 61, 34, 255});
    const SDL_Color hexadInk = over({45, 35, 70, 70}, {91, 61, 32, 255});
    for (int from = 0; from < 9; ++from) {
        for (int to = from + 1; to < 9; ++to) {
            const bool inTriangle = triangle.contains({from, to});
            const bool inHexad = hexad.contains({from, to});
            const double asTriangle = inked(seen, place(from), place(to), isLike(triangleInk));
            const double asHexad = inked(seen, place(from), place(to), isLike(hexadInk));
            EXPECT_EQ(asTriangle > 0.6, inTriangle) << from << "-" << to << ": " << asTriangle;
            EXPECT_EQ(asHexad > 0.6, inHexad) << from << "-" << to << ": " << asHexad;
        }
    }
}

TEST_F(Sacred, TheLinesGlowToEitherSide) {
    const Picture seen = draw();
    // The share of a chord's places beside which, so many pixels away, the ground has been raised so.
    const auto raised = [&](int fromPoint, int toPoint, double aside, SDL_Color by) {
        const Place from = place(fromPoint);
        const Place to = place(toPoint);
        const double length = std::hypot(to.x - from.x, to.y - from.y);
        const auto isRaised = [&](SDL_Color colour) {
            const auto isBy = [&](int times) {
                return colour.r == kBackdrop.r + times * by.r && colour.g == kBackdrop.g + times * by.g &&
                       colour.b == kBackdrop.b + times * by.b;
            };
            return isBy(1) || isBy(2);  // the cut lays some of the lines over each other
        };
        int hits = 0;
        for (int i = 20; i <= 80; ++i) {
            bool hit = false;
            for (const double away : {aside * 0.7, aside, aside * 1.3}) {
                hit = hit ||
                      isRaised(near(
                          seen, {from.x + i / 100.0 * (to.x - from.x) - away * (to.y - from.y) / length,
                                 from.y + i / 100.0 * (to.y - from.y) + away * (to.x - from.x) / length}));
            }
            hits += hit ? 1 : 0;
        }
        return hits / 61.0;
    };
    const SDL_Color triangle{2, 1, 4, 0};  // (22, 16, 35) * 30 / 255
    const SDL_Color hexad{1, 1, 2, 0};     // (18, 14, 28) * 25 / 255
    for (const double aside : {-1.5, 1.5}) {
        for (const auto& [from, to] : {std::pair(0, 3), std::pair(3, 6), std::pair(6, 0)})
            EXPECT_GT(raised(from, to, aside, triangle), 0.5) << from << "-" << to << ", " << aside;
        for (const auto& [from, to] : {std::pair(1, 4), std::pair(4, 2), std::pair(2, 8), std::pair(8, 5),
                                       std::pair(5, 7), std::pair(7, 1)}) {
            EXPECT_GT(raised(from, to, aside, hexad), 0.5) << from << "-" << to << ", " << aside;
        }
    }
    EXPECT_LT(raised(3, 6, 6.0, triangle), 0.1);
    EXPECT_LT(raised(1, 4, -6.0, hexad), 0.1);
}

TEST_F(Sacred, TheCirclesGlowOnePixelToEitherSide) {
    const Picture seen = draw();
    // Right of the middle, where the circles are upright: radius 152, and 22.8 inside.
    const SDL_Color outer{93, 62, 35, 255};  // (25, 18, 40) * 35 / 255 = (3, 2, 5)
    EXPECT_EQ(seen.at(370, 222), kBackdrop);
    EXPECT_TRUE(isColor(seen.at(371, 222), outer, 1));
    EXPECT_TRUE(isColor(seen.at(372, 222), over({60, 45, 90, 160}, kBackdrop), 2));
    EXPECT_TRUE(isColor(seen.at(373, 222), outer, 1));
    EXPECT_EQ(seen.at(374, 222), kBackdrop);
    const SDL_Color inner{91, 61, 32, 255};  // (18, 14, 30) * 25 / 255 = (1, 1, 2)
    EXPECT_EQ(seen.at(240, 221), kBackdrop);
    EXPECT_EQ(seen.at(241, 221), inner);
    EXPECT_TRUE(isColor(seen.at(242, 221), over({40, 30, 65, 80}, kBackdrop), 2));
    EXPECT_EQ(seen.at(243, 221), inner);
    EXPECT_EQ(seen.at(244, 221), kBackdrop);
}

TEST_F(Sacred, EachPointHasASquareAndItsDigit) {
    const Picture seen = draw();
    for (int i = 0; i < 9; ++i) {
        const Place point = place(i);
        const int left = static_cast<int>(point.x) - 3;
        const int top = static_cast<int>(point.y) - 3;
        for (int corner = 0; corner < 4; ++corner) {
            const int x = left + corner % 2 * 6;
            const int y = top + corner / 2 * 6;
            EXPECT_TRUE(isColor(seen.at(x, y), over({140, 120, 200, 220}, kBackdrop), 10)) << i;
        }
        EXPECT_FALSE(isColor(seen.at(left - 1, top - 1), over({140, 120, 200, 220}, kBackdrop), 10)) << i;
        EXPECT_FALSE(isColor(seen.at(left + 7, top + 7), over({140, 120, 200, 220}, kBackdrop), 10)) << i;
        const SDL_Point middle = sacredLayout(kBody).digits[static_cast<std::size_t>(i)];
        const std::string digit = i == 0 ? "9" : std::to_string(i);
        const SDL_Point at = test::centredPlace(digit, {middle.x, middle.y, 0, 0}, fonts.fontLabel);
        EXPECT_TRUE(isText(seen, kBackdrop, digit, at.x, at.y, fonts.fontLabel, {180, 160, 220, 220})) << i;
    }
}

TEST_F(Sacred, WithoutNotesTheFigureStandsStill) {
    EXPECT_TRUE(draw({}, 0.0f) == draw({}, 5.0f));
    EXPECT_TRUE(draw({}, std::numeric_limits<float>::quiet_NaN()) == draw());
}

bool isGreenish(SDL_Color colour) {
    return colour.g > 150 && colour.r < 80 && colour.b < 90;
}

TEST_F(Sacred, ANoteIsATriangleBetweenItsCorners) {
    const Picture seen = draw({{396.5f, 0.5f, kGreen}}, calmTime(396.5f));
    const Place a = place(3);
    const Place b = place(0);
    const Place c = place(6.5);
    EXPECT_GT(inked(seen, a, b, isGreenish), 0.98);
    EXPECT_GT(inked(seen, b, c, isGreenish), 0.98);
    EXPECT_GT(inked(seen, c, a, isGreenish), 0.98);
    EXPECT_LT(inked(seen, a, place(6), isGreenish), 0.2);
    EXPECT_LT(inked(seen, b, place(6), isGreenish), 0.2);
}

TEST_F(Sacred, ANotesSidesHaveItsColourAndAGlowAroundThem) {
    // 360 Hz: 3, 6 and the top; the side 3-6 is level at 296.
    const Picture figure = draw();
    const Picture seen = draw({{360.0f, 0.5f, kGreen}}, calmTime(360.0f));
    const auto glowing = [&](int y, int times) {
        const SDL_Color below = figure.at(200, y);  // alpha 210 / 3 = 70
        return SDL_Color{static_cast<Uint8>(below.r + times * (10 * 70 / 255)),
                         static_cast<Uint8>(below.g + times * (80 * 70 / 255)),
                         static_cast<Uint8>(below.b + times * (20 * 70 / 255)), 255};
    };
    int core = 0;
    int glow = 0;
    for (int y = 285; y < 308; ++y) {
        const bool isCore = seen.at(200, y).g > 150;
        core += isCore ? 1 : 0;
        if (!isCore && !(seen.at(200, y) == figure.at(200, y))) {
            ++glow;
            EXPECT_TRUE(isColor(seen.at(200, y), glowing(y, 1), 3)) << y;
        }
    }
    // Three lines and seven; the cut may lay two of each into one row.
    EXPECT_TRUE(core == 2 || core == 3) << core;
    EXPECT_TRUE(core + glow == 6 || core + glow == 7) << glow;
    const SDL_Color green{kGreen.r, kGreen.g, kGreen.b, 210};
    EXPECT_TRUE(isColor(seen.at(200, 295), over(green, glowing(295, 1)), 4) ||
                isColor(seen.at(200, 296), over(green, glowing(296, 1)), 4));
}

TEST_F(Sacred, ANotesCornersAreBrightSquaresOverItsSides) {
    const Picture seen = draw({{174.5f, 0.5f, {30, 174, 175, 255}}}, calmTime(174.5f));
    // Raised by 80, and all the way from 175 on.
    const SDL_Color bright{110, 254, 255, 210};
    for (const double ninths : {1.0, 7.0, 4.5}) {
        const Place corner = place(ninths);
        const int left = static_cast<int>(corner.x) - 4;
        const int top = static_cast<int>(corner.y) - 4;
        int covered = 0;
        for (int y = top; y < top + 9; ++y) {
            for (int x = left; x < left + 9; ++x)
                covered += seen.at(x, y).g > 200 && seen.at(x, y).r > 80 ? 1 : 0;
        }
        EXPECT_EQ(covered, 81) << ninths;
        // The outermost pixel of the four corners has at most a glow below it.
        const Place out = place(ninths, kRadius + 6.0);
        const int x = out.x > corner.x ? left + 8 : left;
        const int y = out.y > corner.y ? top + 8 : top;
        if (ninths == 4.5) {
            EXPECT_TRUE(isColor(seen.at(left, top + 8), over(bright, kBackdrop), 12)) << ninths;
        } else {
            EXPECT_TRUE(isColor(seen.at(x, y), over(bright, kBackdrop), 12)) << ninths;
        }
    }
}

TEST_F(Sacred, ANoteIsFullFromATwentiethToNineTenths) {
    // The top corner of 360 Hz, over nothing but the square of the point.
    const auto greenAt = [&](float progress) {
        return int{draw({{360.0f, progress, kGreen}}, calmTime(360.0f)).at(224, 64).g};
    };
    EXPECT_EQ(greenAt(0.05f), greenAt(0.5f));
    EXPECT_EQ(greenAt(0.9f), greenAt(0.5f));
    EXPECT_LT(greenAt(0.04f), greenAt(0.5f));
    EXPECT_LT(greenAt(0.02f), greenAt(0.04f));
    EXPECT_LT(greenAt(0.92f), greenAt(0.5f));
    EXPECT_LT(greenAt(0.98f), greenAt(0.92f));
    const auto lifted = [](int alpha) {
        return over({110, 255, 140, static_cast<Uint8>(alpha)}, kBackdrop).g;
    };
    EXPECT_NEAR(greenAt(0.5f), lifted(210), 3);
    EXPECT_NEAR(greenAt(0.025f), lifted(105), 3);
    EXPECT_NEAR(greenAt(0.95f), lifted(105), 3);
}

TEST_F(Sacred, ANoteBelowAlphaFourIsLeftOut) {
    const Picture figure = draw();
    const float time = calmTime(360.0f);
    EXPECT_TRUE(draw({{360.0f, 0.00094f, kGreen}}, time) == figure);   // 3.95
    EXPECT_FALSE(draw({{360.0f, 0.00097f, kGreen}}, time) == figure);  // 4.07
    EXPECT_TRUE(draw({{360.0f, 1.0f, kGreen}}, time) == figure);
}

TEST_F(Sacred, ANotePulsesWithTimeByAnEighth) {
    const auto greenAt = [&](double phase) {
        const auto time = static_cast<float>((phase - 3.6) / 3.0);
        return int{draw({{360.0f, 0.5f, kGreen}}, time).at(224, 64).g};
    };
    const auto lifted = [](double alpha) {
        return over({110, 255, 140, static_cast<Uint8>(alpha)}, kBackdrop).g;
    };
    EXPECT_NEAR(greenAt(std::numbers::pi / 2), lifted(210.0 * 1.12), 3);
    EXPECT_NEAR(greenAt(-std::numbers::pi / 2), lifted(210.0 * 0.88), 3);
}

TEST_F(Sacred, ALaterNoteLiesOverAnEarlierOne) {
    const SDL_Color red{250, 20, 20, 255};
    const float time = calmTime(360.0f);
    EXPECT_GT(draw({{360.0f, 0.5f, red}, {360.0f, 0.5f, kGreen}}, time).at(220, 68).g, 180);
    EXPECT_GT(draw({{360.0f, 0.5f, kGreen}, {360.0f, 0.5f, red}}, time).at(220, 68).r, 200);
}

TEST_F(Sacred, WhatIsNoPitchOrNoTimeIsLeftOut) {
    const Picture figure = draw();
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
    for (const float hz : {0.0f, -440.0f, kInfinity, -kInfinity, kNaN, std::numeric_limits<float>::max()})
        EXPECT_TRUE(draw({{hz, 0.5f, kGreen}}) == figure) << hz;
    EXPECT_FALSE(draw({{1e30f, 0.5f, kGreen}}) == figure);
    for (const float progress : {-0.5f, 1.5f, -1e30f, 1e30f, kNaN, kInfinity})
        EXPECT_TRUE(draw({{440.0f, progress, kGreen}}) == figure) << progress;
    EXPECT_TRUE(draw({{440.0f, 0.5f, kGreen}}, kInfinity) == figure);
    EXPECT_TRUE(draw({{440.0f, 0.5f, kGreen}}, kNaN) == figure);
}

TEST_F(Sacred, AHundredAndTwentyEightNotesKeepToTheirCircle) {
    std::vector<ColouredNote> notes;
    for (int i = 0; i < 128; ++i)
        notes.push_back({100.3f + 17.7f * static_cast<float>(i), 0.5f, kGreen});
    const Picture seen = draw(notes);
    const Picture figure = draw();
    int changed = 0;
    for (int y = 0; y < seen.h; ++y) {
        for (int x = 0; x < seen.w; ++x) {
            if (seen.at(x, y) == figure.at(x, y)) continue;
            ++changed;
            ASSERT_LT(std::hypot(x - 220.0, y - 220.0), kRadius + 8.0) << x << ", " << y;
        }
    }
    EXPECT_GT(changed, 20000);
}

// A texture of one colour, blended as a picture file is.
SDL_Texture* plainTexture(SDL_Renderer* renderer, SDL_Color colour, Uint8 alpha) {
    SDL_Surface* surface = SDL_CreateRGBSurfaceWithFormat(0, 16, 16, 32, SDL_PIXELFORMAT_ARGB8888);
    SDL_FillRect(surface, nullptr, SDL_MapRGB(surface->format, colour.r, colour.g, colour.b));
    SDL_Texture* texture = SDL_CreateTextureFromSurface(renderer, surface);
    SDL_FreeSurface(surface);
    SDL_SetTextureBlendMode(texture, SDL_BLENDMODE_BLEND);
    SDL_SetTextureAlphaMod(texture, alpha);
    return texture;
}

TEST_F(Sacred, TheBackdropLiesBehindTheFigureAtTheAlphaThatItHas) {
    SDL_Texture* backdrop = plainTexture(screen.renderer, {10, 200, 220, 255}, 110);
    const Picture seen = draw({}, 0.0f, kBody, backdrop);
    const SDL_Color tinted = over({10, 200, 220, 110}, kBackdrop);
    // 304 wide: from (68, 68) to under (372, 372).
    EXPECT_TRUE(isColor(seen.at(68, 68), tinted, 3));
    EXPECT_TRUE(isColor(seen.at(371, 371), tinted, 3));
    EXPECT_EQ(seen.at(67, 80), kBackdrop);
    EXPECT_EQ(seen.at(372, 80), kBackdrop);
    EXPECT_TRUE(isColor(seen.at(220, 220), tinted, 3));
    EXPECT_TRUE(isColor(seen.at(217, 71), over({140, 120, 200, 220}, tinted), 8)) << "the top point over it";
    Uint8 alpha = 0;
    SDL_GetTextureAlphaMod(backdrop, &alpha);
    EXPECT_EQ(alpha, 110);
    SDL_DestroyTexture(backdrop);
}

TEST_F(Sacred, AnEmptyBodyDrawsNothing) {
    for (const SDL_Rect& body :
         {SDL_Rect{10, 20, 0, 400}, SDL_Rect{10, 20, 420, 0}, SDL_Rect{10, 20, -8, -3}}) {
        draw({{396.0f, 0.5f, kGreen}}, 0.0f, body);
        EXPECT_EQ(touched(), 0);
    }
    draw({{396.0f, 0.5f, kGreen}}, 0.0f, {200, 200, 1, 1});
    EXPECT_GT(touched(), 0);
}

TEST_F(Sacred, InASmallPanelAllKeepsToTheBody) {
    PanelState panel;
    panel.open = true;
    panel.rect = {40, 50, 200, 150};
    const std::vector<ColouredNote> notes = {{396.0f, 0.5f, kGreen}};
    drawPanel(context, panel, "", {}, [&](const PanelLayout& layout) {
        drawSacredGeometry(context, layout.body, notes, calmTime(396.0f), nullptr);
    });
    const Picture seen = picture();
    for (int y = 0; y < seen.h; ++y) {
        for (int x = 0; x < seen.w; ++x) {
            if (x < 40 || x >= 240 || y < 50 || y >= 200) {
                ASSERT_EQ(seen.at(x, y), kBackdrop) << x << ", " << y;
            }
        }
    }
    // Body (42, 74, 196, 124): middle at (140, 136), radius 47.12.
    const Place middle{140.0, 136.0};
    EXPECT_GT(inked(seen, place(3, 47.12, middle), place(0, 47.12, middle), isGreenish), 0.95);
    EXPECT_GT(inked(seen, place(6, 47.12, middle), place(3, 47.12, middle), isGreenish), 0.95);
}

class MaximisedSacred : public Sacred {
  protected:
    MaximisedSacred() : Sacred(1920, 1080) {}
};

TEST_F(MaximisedSacred, FillsTheWindow) {
    const SDL_Rect body{2, 24, 1916, 1054};  // middle at (960, 551), radius 400.52
    const Picture seen = draw({{396.5f, 0.5f, kGreen}}, calmTime(396.5f), body);
    const Place middle{960.0, 551.0};
    EXPECT_GT(inked(seen, place(3, 400.52, middle), place(6.5, 400.52, middle), isGreenish), 0.98);
    for (int i = 0; i < 9; ++i) {
        const Place point = place(i, 400.52, middle);
        const bool isCorner = i == 0 || i == 3;
        EXPECT_EQ(near(seen, point).g > 180, isCorner) << i;
        EXPECT_GT(near(seen, point).b, 100) << i;
    }
}

}  // namespace
}  // namespace veloria
