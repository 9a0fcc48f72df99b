// The trace and its panel.
#include "views/scope.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

#include "tests/ui/offscreen.h"

namespace veloria {
namespace {

using test::isColor;
using test::kBackdrop;
using test::over;
using test::Picture;

constexpr SDL_Color kTrace{0, 255, 200, 255};
constexpr SDL_Color kBlack{18, 18, 24, 255};

class Scope : public test::DrawTest {
  protected:
    explicit Scope(int w = 800, int h = 300) : DrawTest(w, h) {}

    Picture draw(const SDL_Rect& body) {
        screen.clear(kBackdrop);
        drawScope(context, state, body, scope);
        return picture();
    }
    // The rows of a column that show the trace, from the top; -1, -1 when there are none.
    static std::pair<int, int> traceRows(const Picture& seen, int x) {
        int first = -1;
        int last = -1;
        for (int y = 0; y < seen.h; ++y) {
            if (!(seen.at(x, y) == kTrace)) continue;
            if (first < 0) first = y;
            last = y;
        }
        return {first, last};
    }
    void fillWith(float level) { scope.samples.fill(level); }
    // The sample `age` places after the oldest one.
    float& sampleAfterOldest(int age) {
        return scope.samples[static_cast<std::size_t>((scope.write + age) % 2048)];
    }

    ScopeState state;
    ScopeBuffer scope;
};

constexpr SDL_Rect kBody{100, 40, 600, 194};  // zero line at 40 + 97 = 137

TEST_F(Scope, TheZeroLineStandsInTheMiddleAtFirst) {
    EXPECT_EQ(state.scopeCentre, 0.5f);
    EXPECT_FLOAT_EQ(scopeLayout(state, kBody).zeroLine, 137.0f);
    state.scopeCentre = 0.25f;
    EXPECT_FLOAT_EQ(scopeLayout(state, kBody).zeroLine, 88.5f);
}

TEST_F(Scope, FillsItsBodyAndNothingElse) {
    fillWith(0.5f);
    const Picture seen = draw(kBody);
    EXPECT_EQ(seen.at(101, 41), kBlack);
    EXPECT_EQ(seen.at(699, 233), kBlack);
    EXPECT_EQ(seen.at(99, 100), kBackdrop);
    EXPECT_EQ(seen.at(700, 100), kBackdrop);
    EXPECT_EQ(seen.at(300, 39), kBackdrop);
    EXPECT_EQ(seen.at(300, 234), kBackdrop);
}

TEST_F(Scope, TheGridIsFortyPixelsWideFromTheBodysCorner) {
    fillWith(0.9f);  // the trace out of the way, at 218
    const Picture seen = draw(kBody);
    const SDL_Color line = over({48, 48, 48, 100}, kBlack);
    const SDL_Color crossing = over({48, 48, 48, 100}, line);
    for (int x = 100; x < 700; ++x) {
        const bool column = (x - 100) % 40 == 0;
        EXPECT_TRUE(isColor(seen.at(x, 50), column ? line : kBlack)) << x;
        EXPECT_TRUE(isColor(seen.at(x, 80), column ? crossing : line)) << x;
    }
    for (int y = 40; y < 234; ++y) {
        if (y == 137 || y == 218) continue;
        const bool row = (y - 40) % 40 == 0;
        EXPECT_TRUE(isColor(seen.at(110, y), row ? line : kBlack)) << y;
    }
}

TEST_F(Scope, TheZeroLineHasTheAccentColourOverTheFullWidth) {
    fillWith(0.9f);
    const Picture seen = draw(kBody);
    const SDL_Color zero = over({71, 114, 179, 80}, kBlack);
    EXPECT_TRUE(isColor(seen.at(101, 137), zero));
    EXPECT_TRUE(isColor(seen.at(699, 137), zero));
    EXPECT_EQ(seen.at(101, 136), kBlack);
    EXPECT_EQ(seen.at(101, 138), kBlack);
    state.scopeCentre = 0.25f;
    EXPECT_TRUE(isColor(draw(kBody).at(101, 88), zero)) << "88.5, cut";
}

TEST_F(Scope, SilenceLiesOnTheZeroLine) {
    const Picture seen = draw(kBody);
    for (int x = 100; x < 700; ++x)
        EXPECT_EQ(traceRows(seen, x), std::make_pair(137, 137)) << x;
}

TEST_F(Scope, APositiveSampleGoesDownNinetyPixelsAtFullLevel) {
    fillWith(1.0f);
    EXPECT_EQ(traceRows(draw(kBody), 300), std::make_pair(227, 227));
    fillWith(-0.5f);
    EXPECT_EQ(traceRows(draw(kBody), 300), std::make_pair(92, 92));
}

TEST_F(Scope, PixelsAreCutNotRounded) {
    fillWith(0.011f);  // 0.99 pixels
    EXPECT_EQ(traceRows(draw(kBody), 300), std::make_pair(137, 137));
    fillWith(-0.001f);  // 136.91
    EXPECT_EQ(traceRows(draw(kBody), 300), std::make_pair(136, 136));
}

TEST_F(Scope, RunsBackwardsInTimeAndEndsOneAfterTheOldestSample) {
    scope.write = 700;
    sampleAfterOldest(1) = 0.5f;     // the last column, 599
    sampleAfterOldest(201) = -0.5f;  // 200 later in time, 200 columns to the left
    sampleAfterOldest(600) = 0.9f;   // the first column
    sampleAfterOldest(601) = 1.0f;   // too new to be seen
    const Picture seen = draw(kBody);
    // A peak belongs to its column; the lines to and from it share the way to the neighbours.
    EXPECT_EQ(traceRows(seen, 699).second, 182);
    EXPECT_EQ(traceRows(seen, 697), std::make_pair(137, 137));
    EXPECT_EQ(traceRows(seen, 499).first, 92);
    EXPECT_EQ(traceRows(seen, 501), std::make_pair(137, 137));
    EXPECT_EQ(traceRows(seen, 497), std::make_pair(137, 137));
    EXPECT_EQ(traceRows(seen, 100).second, 218);
    EXPECT_EQ(traceRows(seen, 102), std::make_pair(137, 137));
    for (int x = 100; x < 700; ++x)
        EXPECT_LE(traceRows(seen, x).second, 218) << x;
}

TEST_F(Scope, TheOldestSampleItselfIsNotShownByANarrowBody) {
    scope.write = 5;
    sampleAfterOldest(0) = 1.0f;
    sampleAfterOldest(2047) = 1.0f;  // the newest
    const Picture seen = draw(kBody);
    for (int x = 100; x < 700; ++x)
        EXPECT_EQ(traceRows(seen, x), std::make_pair(137, 137)) << x;
}

TEST_F(Scope, TheRingWrapsInsideTheBody) {
    scope.write = 2000;  // index 0 of the ring stands 48 places after the oldest
    scope.samples[0] = 0.5f;
    const Picture seen = draw(kBody);
    EXPECT_EQ(traceRows(seen, 100 + 600 - 48).second, 182);
}

TEST_F(Scope, EachColumnIsJoinedToTheOneBeforeIt) {
    // A square wave of 100 columns: every row between its levels is crossed at each edge.
    for (int age = 0; age < 2048; ++age)
        sampleAfterOldest(age) = age / 100 % 2 == 0 ? 0.5f : -0.5f;
    const Picture seen = draw(kBody);
    // Column 599 - 98 shows sample 99, the column left of it sample 100.
    const int edge = 100 + 600 - 99;
    for (int y = 92; y <= 182; ++y) {
        EXPECT_TRUE(seen.at(edge, y) == kTrace || seen.at(edge - 1, y) == kTrace) << y;
    }
    EXPECT_EQ(traceRows(seen, edge + 1), std::make_pair(182, 182));
    EXPECT_EQ(traceRows(seen, edge - 2), std::make_pair(92, 92));
}

TEST_F(Scope, WhatLeavesTheBodyIsCut) {
    for (int age = 0; age < 2048; ++age)
        sampleAfterOldest(age) = age % 2 == 0 ? 5.0f : -5.0f;
    const Picture seen = draw(kBody);
    const auto traced = [&](int y) {
        int count = 0;
        for (int x = 0; x < seen.w; ++x)
            count += seen.at(x, y) == kTrace ? 1 : 0;
        return count;
    };
    // Each row of the body is crossed on the way between any two columns, no row outside by any.
    for (int y = 40; y < 234; ++y)
        EXPECT_GE(traced(y), 299) << y;
    for (int y = 0; y < 300; ++y) {
        if (y < 40 || y >= 234) {
            EXPECT_EQ(traced(y), 0) << y;
        }
        EXPECT_EQ(seen.at(99, y), kBackdrop);
        EXPECT_EQ(seen.at(700, y), kBackdrop);
    }
}

TEST_F(Scope, SamplesThatAreNoSoundDoNoHarm) {
    sampleAfterOldest(100) = std::numeric_limits<float>::infinity();
    sampleAfterOldest(200) = -std::numeric_limits<float>::infinity();
    sampleAfterOldest(300) = std::numeric_limits<float>::quiet_NaN();
    sampleAfterOldest(400) = std::numeric_limits<float>::max();
    const Picture seen = draw(kBody);
    EXPECT_EQ(traceRows(seen, 100 + 600 - 300), std::make_pair(137, 137));
    EXPECT_GE(traceRows(seen, 100 + 600 - 100).second, 233);
    EXPECT_EQ(traceRows(seen, 100 + 600 - 200).first, 40);
}

TEST_F(Scope, AnEmptyBodyDrawsNothing) {
    draw({100, 40, 0, 194});
    EXPECT_EQ(touched(), 0);
    draw({100, 40, 600, 0});
    EXPECT_EQ(touched(), 0);
}

TEST_F(Scope, TheClipOfBeforeIsBack) {
    const SDL_Rect before{10, 10, 300, 200};
    SDL_RenderSetClipRect(screen.renderer, &before);
    drawScope(context, state, kBody, scope);
    SDL_Rect after{};
    SDL_RenderGetClipRect(screen.renderer, &after);
    EXPECT_TRUE(SDL_RectEquals(&before, &after));
    SDL_RenderSetClipRect(screen.renderer, nullptr);
    EXPECT_EQ(picture().at(400, 100), kBackdrop) << "and held";
}

class WideScope : public Scope {
  protected:
    WideScope() : Scope(2600, 240) {}
};

TEST_F(WideScope, ABodyWiderThanTheRingRepeatsIt) {
    scope.write = 100;
    sampleAfterOldest(300) = 0.5f;
    const Picture seen = draw({10, 20, 2500, 200});  // zero line at 120
    // Column i shows the sample 2500 - i after the oldest: 2200, and 2048 columns before it 152.
    EXPECT_EQ(traceRows(seen, 10 + 2200).second, 165);
    EXPECT_EQ(traceRows(seen, 10 + 152).second, 165);
    EXPECT_EQ(traceRows(seen, 10 + 1176), std::make_pair(120, 120));
    int peaks = 0;
    for (int x = 10; x < 2510; ++x)
        peaks += traceRows(seen, x).second == 165 ? 1 : 0;
    EXPECT_EQ(peaks, 2);
}

TEST_F(WideScope, ABodyAsWideAsTheRingBeginsWithTheOldestAndThenTheNewest) {
    scope.write = 1500;
    sampleAfterOldest(0) = 0.5f;
    sampleAfterOldest(2047) = -0.5f;
    const Picture seen = draw({10, 20, 2048, 200});
    EXPECT_EQ(traceRows(seen, 10).second, 165);
    EXPECT_EQ(traceRows(seen, 11).first, 75);
    EXPECT_EQ(traceRows(seen, 13), std::make_pair(120, 120));
    EXPECT_EQ(traceRows(seen, 10 + 2047), std::make_pair(120, 120));
}

class ScopePanel : public Scope {
  protected:
    ScopePanel() { panel.rect = {50, 50, 600, 220}; }

    Picture drawPanelAt() {
        screen.clear(kBackdrop);
        drawScopePanel(context, panel, state, snapshot);
        return picture();
    }

    PanelState panel;
    FrameSnapshot snapshot;
};

TEST_F(ScopePanel, ClosedItDrawsNothing) {
    drawPanelAt();
    EXPECT_EQ(touched(), 0);
}

TEST_F(ScopePanel, TheTraceFillsTheBodyOfTheFrame) {
    panel.open = true;
    const Picture seen = drawPanelAt();
    // Body (52, 74, 596, 194), zero line at 171; the border in the panel's own colour.
    EXPECT_EQ(traceRows(seen, 52), std::make_pair(171, 171));
    EXPECT_EQ(traceRows(seen, 647), std::make_pair(171, 171));
    EXPECT_EQ(traceRows(seen, 51), std::make_pair(-1, -1));
    EXPECT_EQ(traceRows(seen, 648), std::make_pair(-1, -1));
    EXPECT_EQ(seen.at(53, 75), kBlack);
    EXPECT_EQ(seen.at(300, 60), (SDL_Color{42, 40, 56, 255}));
    EXPECT_TRUE(isColor(seen.at(50, 200), over({120, 230, 210, 220}, over({22, 20, 30, 248}, kBackdrop)), 3));
    int title = 0;
    for (int y = 54; y < 70; ++y) {
        for (int x = 58; x < 230; ++x)
            title += isColor(seen.at(x, y), {120, 230, 210, 255}, 6) ? 1 : 0;
    }
    EXPECT_GT(title, 40);
}

TEST_F(ScopePanel, TheGripLiesOverTheTraceUnlessMaximised) {
    panel.open = true;
    const SDL_Color grip = over({71, 114, 179, 120}, kBlack);
    const auto gripPixels = [&](const Picture& seen, int right, int bottom) {
        int count = 0;
        for (int y = bottom - 14; y < bottom; ++y) {
            for (int x = right - 14; x < right; ++x)
                count += isColor(seen.at(x, y), grip, 3) ? 1 : 0;
        }
        return count;
    };
    EXPECT_GT(gripPixels(drawPanelAt(), 648, 268), 15);
    panel.maximised = true;
    const Picture seen = drawPanelAt();
    EXPECT_EQ(gripPixels(seen, 798, 298), 0);
    EXPECT_EQ(traceRows(seen, 2), std::make_pair(161, 161)) << "body (2, 24, 796, 274)";
    EXPECT_EQ(traceRows(seen, 797), std::make_pair(161, 161));
}

TEST_F(ScopePanel, ShowsTheRingOfAllSound) {
    panel.open = true;
    snapshot.scope.samples.fill(0.5f);
    snapshot.engine.scopeRing.fill(-0.5f);
    EXPECT_EQ(traceRows(drawPanelAt(), 300), std::make_pair(216, 216));
}

}  // namespace
}  // namespace veloria
