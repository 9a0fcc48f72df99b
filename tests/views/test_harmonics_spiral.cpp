#include "views/harmonics_spiral.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <limits>
#include <numbers>
#include <numeric>
#include <vector>

#include "tests/ui/text_probe.h"
#include "toolkit/primitives.h"

namespace veloria {
namespace {

using test::isColor;
using test::isText;
using test::kBackdrop;
using test::over;
using test::Picture;

constexpr std::array<int, 14> kRadii = {2, 3, 5, 8, 13, 21, 34, 55, 89, 144, 233, 377, 610, 987};
constexpr SDL_Rect kBody{20, 10, 400, 380};  // middle at (220, 200); 380 * 0.45 = 171 pixels of radii
constexpr SDL_Color kGreen{30, 240, 60, 255};
constexpr float kNearZero = 1e-6f;  // Hz: a spiral that begins at the angle 0

class HarmonicsPicture : public test::DrawTest {
  protected:
    explicit HarmonicsPicture(int w = 440, int h = 400) : DrawTest(w, h) {}

    Picture draw(const SDL_Rect& body, int steps, std::vector<ColouredNote> notes, float time = 0.0f) {
        screen.clear(kBackdrop);
        drawHarmonics(context, body, steps, notes, time);
        return picture();
    }

    // The arcs by their definition in single precision, each line with a call of its own.
    void spiralLineByLine(const SDL_Rect& body, int steps, float angle, SDL_Color colour) {
        float x = static_cast<float>(body.x) + static_cast<float>(body.w) * 0.5f;
        float y = static_cast<float>(body.y) + static_cast<float>(body.h) * 0.5f;
        const int sum = std::accumulate(kRadii.begin(), kRadii.begin() + steps, 0);
        const float unit = static_cast<float>(std::min(body.w, body.h)) * 0.45f / static_cast<float>(sum);
        for (int i = 0; i < steps; ++i) {
            const float radius = static_cast<float>(kRadii[static_cast<std::size_t>(i)]) * unit;
            const float fade = 1.0f / (static_cast<float>(i) * 0.3f + 1.0f);
            const auto cut = [=](int value, int share) {
                return static_cast<Uint8>(static_cast<int>(static_cast<float>(value) * fade) / share);
            };
            const SDL_Color core{cut(colour.r, 1), cut(colour.g, 1), cut(colour.b, 1), cut(colour.a, 1)};
            const SDL_Color glow{cut(colour.r, 3), cut(colour.g, 3), cut(colour.b, 3), cut(colour.a, 3)};
            if (radius >= 1.0f && core.a >= 3) arcLineByLine(x, y, radius, angle, glow, core);
            angle += 1.5707964f;
            x += std::cos(angle) * radius - std::cos(angle + 1.5707964f) * radius;
            y += std::sin(angle) * radius - std::sin(angle + 1.5707964f) * radius;
        }
    }
    void arcLineByLine(float x, float y, float radius, float angle, SDL_Color glow, SDL_Color core) {
        const int segments = std::min(12 + static_cast<int>(radius * 0.1f), 40);
        const float step = 1.5707964f / static_cast<float>(segments);
        for (const bool glows : {true, false}) {
            const SDL_Color colour = glows ? glow : core;
            for (int k = 1; k <= segments; ++k) {
                const float a = angle + static_cast<float>(k - 1) * step;
                const float b = angle + static_cast<float>(k) * step;
                const SDL_FPoint from{x + std::cos(a) * radius, y + std::sin(a) * radius};
                const SDL_FPoint to{x + std::cos(b) * radius, y + std::sin(b) * radius};
                if (glows) {
                    drawThickLine2dF(screen.renderer, from.x, from.y, to.x, to.y, colour, 4,
                                     SDL_BLENDMODE_ADD);
                    continue;
                }
                SDL_SetRenderDrawBlendMode(screen.renderer, SDL_BLENDMODE_BLEND);
                SDL_SetRenderDrawColor(screen.renderer, colour.r, colour.g, colour.b, colour.a);
                SDL_RenderDrawLineF(screen.renderer, from.x, from.y, to.x, to.y);
            }
        }
    }
};

using Complex = std::complex<double>;

// The spiral's arcs by whole powers of i in double precision.
struct WantedArc {
    Complex centre;
    double radius;
};
std::vector<WantedArc> wantedArcs(int count, Complex middle, double reach, double startAngle) {
    const double unit = reach / std::accumulate(kRadii.begin(), kRadii.begin() + count, 0);
    std::vector<WantedArc> arcs;
    Complex centre = middle;
    for (int i = 0; i < count; ++i) {
        const double radius = kRadii[static_cast<std::size_t>(i)] * unit;
        arcs.push_back({centre, radius});
        const Complex next = std::polar(1.0, startAngle + (i + 1) * std::numbers::pi / 2);
        centre += radius * (next - next * Complex(0.0, 1.0));
    }
    return arcs;
}

TEST(HarmonicsLayoutRule, TheRadiiAddUpToLessThanHalfOfTheShorterSide) {
    const HarmonicsLayout layout = harmonicsLayout(kBody, 3);
    EXPECT_FLOAT_EQ(layout.centre.x, 220.0f);
    EXPECT_FLOAT_EQ(layout.centre.y, 200.0f);
    EXPECT_EQ(layout.steps, 3);
    EXPECT_FLOAT_EQ(layout.unit, 171.0f / 10.0f);  // 2 + 3 + 5
    EXPECT_FLOAT_EQ(harmonicsLayout({0, 0, 201, 333}, 3).centre.x, 100.5f);
    EXPECT_FLOAT_EQ(harmonicsLayout({0, 0, 201, 333}, 1).unit, 201.0f * 0.45f / 2.0f);
}

TEST(HarmonicsLayoutRule, ADepthBelowOneMeansSix) {
    for (const int depth : {0, -1, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(harmonicsLayout(kBody, depth).steps, 6);
        EXPECT_FLOAT_EQ(harmonicsLayout(kBody, depth).unit, 171.0f / 52.0f);
    }
    EXPECT_EQ(harmonicsLayout(kBody, 1).steps, 1);
}

TEST(HarmonicsLayoutRule, ThereAreFourteenRadiiAtMost) {
    EXPECT_EQ(harmonicsLayout(kBody, 14).steps, 14);
    EXPECT_FLOAT_EQ(harmonicsLayout(kBody, 14).unit, 171.0f / 2581.0f);
    for (const int depth : {15, 1000, std::numeric_limits<int>::max()}) {
        EXPECT_EQ(harmonicsLayout(kBody, depth).steps, 14);
        EXPECT_FLOAT_EQ(harmonicsLayout(kBody, depth).unit, 171.0f / 2581.0f);
    }
}

TEST(SpiralArcs, EachCentreMovesByTheAngleAtWhichTheNextArcBegins) {
    for (const int steps : {1, 2, 6, 14}) {
        for (const float start : {0.0f, 0.7f, 4.0f, -2.0f}) {
            const auto arcs = spiralArcs(harmonicsLayout(kBody, steps), start);
            const auto wanted = wantedArcs(steps, {220.0, 200.0}, 171.0, static_cast<double>(start));
            for (std::size_t i = 0; i < wanted.size(); ++i) {
                EXPECT_NEAR(arcs[i].radius, wanted[i].radius, 1e-3);
                EXPECT_NEAR(arcs[i].centre.x, wanted[i].centre.real(), 0.01) << steps << ", " << i;
                EXPECT_NEAR(arcs[i].centre.y, wanted[i].centre.imag(), 0.01) << steps << ", " << i;
                EXPECT_NEAR(arcs[i].startAngle, start + static_cast<float>(i) * 1.5707963f, 1e-5);
            }
        }
    }
}

TEST(SpiralArcs, TheArcsDoNotMeet) {
    // The first of two ends below the middle, and the second begins left of that.
    const auto arcs = spiralArcs({{0.0f, 0.0f}, 10.0f, 2}, 0.0f);
    EXPECT_NEAR(arcs[1].centre.x, 20.0f, 1e-4);
    EXPECT_NEAR(arcs[1].centre.y, 20.0f, 1e-4);
    // It begins at (20, 50); the first ended at (0, 20).
    EXPECT_NEAR(arcs[1].centre.y + arcs[1].radius, 50.0f, 1e-4);
}

TEST(SpiralArcs, LongerArcsHaveMoreSegmentsAndFortyAtMost) {
    const auto segmentsOf = [](float radius) { return spiralArcs({{}, radius / 2.0f, 1}, 0.0f)[0].segments; };
    EXPECT_EQ(segmentsOf(0.5f), 12);
    EXPECT_EQ(segmentsOf(9.9f), 12);
    EXPECT_EQ(segmentsOf(10.1f), 13);
    EXPECT_EQ(segmentsOf(171.0f), 29);
    EXPECT_EQ(segmentsOf(279.0f), 39);
    EXPECT_EQ(segmentsOf(281.0f), 40);
    EXPECT_EQ(segmentsOf(5000.0f), 40);
    EXPECT_EQ(segmentsOf(1e30f), 40);
}

TEST(SpiralArcs, EachIsFainterThanTheLast) {
    const auto arcs = spiralArcs(harmonicsLayout(kBody, 14), 0.0f);
    EXPECT_FLOAT_EQ(arcs[0].fade, 1.0f);
    EXPECT_FLOAT_EQ(arcs[1].fade, 1.0f / 1.3f);
    EXPECT_FLOAT_EQ(arcs[13].fade, 1.0f / 4.9f);
}

TEST(SpiralAngle, FollowsPitchWithinATurnAndTime) {
    EXPECT_NEAR(spiralAngle(100.0f, 0.0f), 1.0, 1e-6);
    EXPECT_NEAR(spiralAngle(440.0f, 0.0f), 4.4, 1e-5);
    EXPECT_NEAR(spiralAngle(963.0f, 0.0f), 9.63 - 2.0 * std::numbers::pi, 1e-5);
    EXPECT_NEAR(spiralAngle(100.0f, 10.0f), 4.0, 1e-5);
    EXPECT_NEAR(spiralAngle(403.0f, 2.0f) - spiralAngle(400.0f, 2.0f), 0.03, 1e-5);
}

class Harmonics : public HarmonicsPicture {};

TEST_F(Harmonics, WithoutNotesThereIsTheFaintSpiralAndTheSquare) {
    const Picture seen = draw(kBody, 1, {});
    // One arc of radius 171 from (391, 200) to (220, 371), its first segment almost upright.
    EXPECT_TRUE(isColor(seen.at(391, 202), over({70, 55, 90, 40}, kBackdrop), 4));
    EXPECT_FALSE(seen.at(391, 202) == kBackdrop);
    EXPECT_EQ(seen.at(220, 29), kBackdrop);
    EXPECT_EQ(seen.at(49, 200), kBackdrop);
    const SDL_Color square = over({180, 160, 220, 150}, kBackdrop);
    EXPECT_TRUE(test::isFilled(seen, {217, 197, 7, 7}, square));
    EXPECT_EQ(seen.at(216, 200), kBackdrop);
    EXPECT_EQ(seen.at(224, 200), kBackdrop);
    EXPECT_EQ(seen.at(220, 196), kBackdrop);
    EXPECT_EQ(seen.at(220, 204), kBackdrop);
}

TEST_F(Harmonics, ANotesCoreLiesOverItsGlow) {
    const Picture seen = draw(kBody, 1, {{kNearZero, 0.5f, kGreen}});
    const Picture base = draw(kBody, 1, {});
    // Lines at -2 to 2 pixels, cut: from 389 to 392, the one in the middle with glow of two.
    const auto glowing = [&](int x, int times) {
        const SDL_Color below = base.at(x, 202);
        const auto raised = [=](Uint8 value, int third) {  // alpha 200 / 3 = 66
            return static_cast<Uint8>(value + times * (third * 66 / 255));
        };
        return SDL_Color{raised(below.r, 10), raised(below.g, 80), raised(below.b, 20), 255};
    };
    EXPECT_TRUE(isColor(seen.at(389, 202), glowing(389, 1)));
    EXPECT_TRUE(isColor(seen.at(390, 202), glowing(390, 1)));
    EXPECT_TRUE(isColor(seen.at(392, 202), glowing(392, 1)));
    EXPECT_EQ(seen.at(388, 202), kBackdrop);
    EXPECT_EQ(seen.at(393, 202), kBackdrop);
    const SDL_Color green{kGreen.r, kGreen.g, kGreen.b, 200};
    EXPECT_TRUE(isColor(seen.at(391, 202), over(green, glowing(391, 2)), 3));
}

TEST_F(Harmonics, EveryLineIsDrawnAsIfByItself) {
    const std::vector<ColouredNote> notes = {{174.0f, 0.5f, {200, 40, 10, 255}},
                                             {396.5f, 0.03f, {250, 250, 90, 255}},
                                             {963.0f, 0.95f, kGreen},
                                             {285.0f, 0.0021f, {10, 200, 250, 255}}};
    const auto turn = [](float hz) { return std::fmod(hz * 0.01f, 6.2831855f) + 1.5f * 0.3f; };
    // In the smaller body the fifth of fourteen radii is 1.1 pixels, and the ones before are too small.
    for (const SDL_Rect& body : {kBody, SDL_Rect{20, 10, 400, 300}}) {
        const int middleY = body.y + body.h / 2;
        for (const int steps : {1, 2, 6, 9, 14}) {
            const Picture seen = draw(body, steps, notes, 1.5f);
            screen.clear(kBackdrop);
            spiralLineByLine(body, steps, 0.0f, {70, 55, 90, 40});
            spiralLineByLine(body, steps, turn(174.0f), {200, 40, 10, 200});
            spiralLineByLine(body, steps, turn(396.5f), {250, 250, 90, 119});  // 0.03f / 0.05f * 200 = 119.99
            spiralLineByLine(body, steps, turn(963.0f), {30, 240, 60, 100});   // (1 - 0.95f) / 0.1f * 200
            spiralLineByLine(body, steps, turn(285.0f), {10, 200, 250, 8});    // its outer arcs fade to 2
            fillRect(screen.renderer, {217, middleY - 3, 7, 7}, {180, 160, 220, 150});
            EXPECT_TRUE(seen == picture()) << steps;
            EXPECT_GT(touched(), 300);
        }
    }
}

TEST_F(Harmonics, ANoteFadesInAndOut) {
    const auto greenAt = [&](float progress) {
        return int{draw(kBody, 1, {{kNearZero, progress, kGreen}}).at(391, 202).g};
    };
    EXPECT_LT(greenAt(0.01f), greenAt(0.02f));
    EXPECT_LT(greenAt(0.02f), greenAt(0.05f));
    EXPECT_EQ(greenAt(0.05f), greenAt(0.9f));
    EXPECT_LT(greenAt(0.95f), greenAt(0.9f));
    EXPECT_LT(greenAt(0.99f), greenAt(0.95f));
}

TEST_F(Harmonics, ANoteBelowAlphaFourIsLeftOut) {
    const Picture base = draw(kBody, 1, {});
    EXPECT_TRUE(draw(kBody, 1, {{kNearZero, 0.00099f, kGreen}}) == base);   // 3.96
    EXPECT_FALSE(draw(kBody, 1, {{kNearZero, 0.00101f, kGreen}}) == base);  // 4.04
    EXPECT_TRUE(draw(kBody, 1, {{kNearZero, 1.0f, kGreen}}) == base);
}

TEST_F(Harmonics, ALaterNoteLiesOverAnEarlierOne) {
    const SDL_Color red{250, 20, 20, 255};
    const Picture greenLast = draw(kBody, 1, {{kNearZero, 0.5f, red}, {kNearZero, 0.5f, kGreen}});
    EXPECT_GT(greenLast.at(391, 202).g, greenLast.at(391, 202).r);
    const Picture redLast = draw(kBody, 1, {{kNearZero, 0.5f, kGreen}, {kNearZero, 0.5f, red}});
    EXPECT_GT(redLast.at(391, 202).r, redLast.at(391, 202).g);
}

TEST_F(Harmonics, PitchAndTimeTurnTheSpiral) {
    // The ends of the chords lie on the circle itself, what is between them up to 0.3 pixels inside.
    const auto isGreen = [&](const Picture& seen, double angle) {
        for (int d = -2; d <= 2; ++d) {
            const int x = static_cast<int>(220.0 + (171.0 + d) * std::cos(angle));
            const int y = static_cast<int>(200.0 + (171.0 + d) * std::sin(angle));
            if (seen.at(x, y).g > 150) return true;
        }
        return false;
    };
    const Picture seen = draw(kBody, 1, {{100.0f, 0.5f, kGreen}});  // from 1 to 1 + a quarter turn
    EXPECT_TRUE(isGreen(seen, 1.02));
    EXPECT_TRUE(isGreen(seen, 2.55));
    EXPECT_FALSE(isGreen(seen, 0.95));
    EXPECT_FALSE(isGreen(seen, 2.62));
    const Picture later = draw(kBody, 1, {{100.0f, 0.5f, kGreen}}, 1.0f);
    EXPECT_FALSE(isGreen(later, 1.25));
    EXPECT_TRUE(isGreen(later, 1.32));
    EXPECT_TRUE(isGreen(later, 2.85));
    EXPECT_FALSE(isGreen(later, 2.92));
    EXPECT_TRUE(draw(kBody, 1, {}, 1.0f) == draw(kBody, 1, {}, 7.0f)) << "the faint one stands still";
}

TEST_F(Harmonics, DepthsBeyondTheTableLookLikeFourteen) {
    const std::vector<ColouredNote> notes = {{396.0f, 0.5f, kGreen}};
    EXPECT_TRUE(draw(kBody, 15, notes) == draw(kBody, 14, notes));
    EXPECT_TRUE(draw(kBody, 99, notes) == draw(kBody, 14, notes));
    EXPECT_FALSE(draw(kBody, 13, notes) == draw(kBody, 14, notes));
    EXPECT_TRUE(draw(kBody, 0, notes) == draw(kBody, 6, notes));
    EXPECT_FALSE(draw(kBody, 5, notes) == draw(kBody, 6, notes));
}

TEST_F(Harmonics, FrequenciesThatAreNoPitchAreLeftOut) {
    const Picture base = draw(kBody, 6, {});
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    for (const float hz : {0.0f, -440.0f, kInfinity, -kInfinity, std::numeric_limits<float>::quiet_NaN()})
        EXPECT_TRUE(draw(kBody, 6, {{hz, 0.5f, kGreen}}) == base) << hz;
    EXPECT_FALSE(draw(kBody, 6, {{std::numeric_limits<float>::max(), 0.5f, kGreen}}) == base);
    EXPECT_TRUE(draw(kBody, 6, {{440.0f, 0.5f, kGreen}}, kInfinity) == base);
    EXPECT_TRUE(draw(kBody, 6, {{440.0f, std::numeric_limits<float>::quiet_NaN(), kGreen}}) == base);
    EXPECT_TRUE(draw(kBody, 6, {{440.0f, 1e30f, kGreen}, {440.0f, -1e30f, kGreen}}) == base);
}

TEST_F(Harmonics, AnEmptyBodyDrawsNothing) {
    for (const SDL_Rect& body :
         {SDL_Rect{20, 10, 0, 380}, SDL_Rect{20, 10, 400, 0}, SDL_Rect{20, 10, -5, -7}}) {
        draw(body, 6, {{440.0f, 0.5f, kGreen}});
        EXPECT_EQ(touched(), 0);
    }
    draw({20, 10, 1, 1}, 14, {{440.0f, 0.5f, kGreen}});
    EXPECT_LE(touched(), 49) << "the square alone";
}

class HarmonicsPanel : public HarmonicsPicture {
  protected:
    HarmonicsPanel() : HarmonicsPanel(440, 440) {}
    HarmonicsPanel(int w, int h) : HarmonicsPicture(w, h) {
        panel.open = true;
        panel.rect = {10, 10, 420, 420};
    }
    Picture drawPanelWith(int steps = 1, int palette = 1) {
        screen.clear(kBackdrop);
        drawHarmonicsPanel(context, panel, snapshot, steps, palette, 0.0f);
        return picture();
    }
    // Pixels that a spiral lights up.
    static int greenPixels(const Picture& seen) {
        return static_cast<int>(std::count_if(seen.pixels.begin(), seen.pixels.end(),
                                              [](SDL_Color c) { return c.g > 100 && c.r < 60 && c.b < 60; }));
    }

    PanelState panel;
    FrameSnapshot snapshot;
};

constexpr SDL_Color kTitleBar{42, 40, 56, 255};
constexpr SDL_Color kSand{230, 190, 140, 255};

TEST_F(HarmonicsPanel, ClosedItDrawsNothing) {
    panel.open = false;
    drawPanelWith();
    EXPECT_EQ(touched(), 0);
}

TEST_F(HarmonicsPanel, HasItsNameInGold) {
    const Picture seen = drawPanelWith();
    EXPECT_TRUE(isText(seen, kTitleBar, "HARMONICS  [Fibonacci Spiral]", 18, 14, fonts.fontTab, kSand));
}

TEST_F(HarmonicsPanel, ShowsTheNotesOfTheFrameInTheColoursOfThePalette) {
    EXPECT_EQ(greenPixels(drawPanelWith()), 0) << "the faint spiral alone";
    snapshot.notes = {{528.0f, 0.5f, 0.5f}};  // pure green in one palette, (163, 115, 68) in the other
    const Picture seen = drawPanelWith(1, 1);
    EXPECT_GT(greenPixels(seen), 150);
    EXPECT_EQ(greenPixels(drawPanelWith(1, 0)), 0);
    // Body (12, 34, 416, 394): middle at (220, 231), the arc of radius 177.3 begins at 5.28.
    EXPECT_GT(seen.at(static_cast<int>(220.0 + 177.3 * std::cos(5.28)),
                      static_cast<int>(231.0 + 177.3 * std::sin(5.28)))
                  .g,
              100);
}

TEST_F(HarmonicsPanel, ShowsTheFirstHundredAndTwentyEightNotes) {
    snapshot.notes.assign(128, {440.0f, 1.0f, 0.5f});
    snapshot.notes.push_back({528.0f, 0.5f, 0.5f});
    EXPECT_EQ(greenPixels(drawPanelWith()), 0) << "the 129th";
    snapshot.notes[127] = {528.0f, 0.5f, 0.5f};
    EXPECT_GT(greenPixels(drawPanelWith()), 150);
    for (std::size_t i = 0; i < 128; ++i)
        snapshot.notes[i] = {100.0f + 7.0f * static_cast<float>(i), 0.5f, 0.5f};
    drawPanelWith(14);
    EXPECT_GT(touched(), 0);
}

TEST_F(HarmonicsPanel, ASmallPanelKeepsToItsFrame) {
    panel.rect = {40, 50, 200, 150};
    snapshot.notes = {{528.0f, 0.5f, 0.5f}};
    const Picture seen = drawPanelWith(2);
    for (int y = 0; y < seen.h; ++y) {
        for (int x = 0; x < seen.w; ++x) {
            if (x < 40 || x >= 240 || y < 50 || y >= 200) {
                ASSERT_EQ(seen.at(x, y), kBackdrop) << x << ", " << y;
            }
        }
    }
    EXPECT_GT(greenPixels(seen), 40);
    // Body (42, 74, 196, 124).
    EXPECT_TRUE(
        isColor(seen.at(140, 136), over({180, 160, 220, 150}, over({22, 20, 30, 248}, kBackdrop)), 4));
}

class MaximisedHarmonics : public HarmonicsPanel {
  protected:
    MaximisedHarmonics() : HarmonicsPanel(1920, 1080) { panel.maximised = true; }
};

TEST_F(MaximisedHarmonics, FillsTheWindow) {
    snapshot.notes = {{528.0f, 0.5f, 0.5f}};
    const Picture seen = drawPanelWith(1);
    // Body (2, 24, 1916, 1054): middle at (960, 551), radius 474.3, forty segments.
    for (const double angle : {5.3, 6.0, 6.8}) {
        int brightest = 0;
        for (int d = -2; d <= 2; ++d) {
            brightest =
                std::max<int>(brightest, seen.at(static_cast<int>(960.0 + (474.3 + d) * std::cos(angle)),
                                                 static_cast<int>(551.0 + (474.3 + d) * std::sin(angle)))
                                             .g);
        }
        EXPECT_GT(brightest, 150) << angle;
    }
}

}  // namespace
}  // namespace veloria
