// The rectangles that the landscape is made of.
#include "views/spectrum/spectrum_shapes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>
#include <set>
#include <vector>

#include "tests/ui/offscreen.h"

// For gtest, which looks in SDL_Rect's own namespace.
inline void PrintTo(const SDL_Rect& rect, std::ostream* out) {
    *out << rect.x << ", " << rect.y << ", " << rect.w << ", " << rect.h;
}
inline bool operator==(const SDL_Rect& left, const SDL_Rect& right) {
    return SDL_RectEquals(&left, &right) == SDL_TRUE;
}

namespace veloria {
namespace {

// Near edge at 368, middle at 280. Row 0: 2 to 558. Row 20: y 248, 64 to 496, fade 0.72, up to 101.4 high.
// Row 49: y 74, 152 to 408.
constexpr SDL_Rect kBody{2, 24, 556, 354};

class SpectrumShape : public testing::Test {
  protected:
    void put(int row, int column, float weight, float red = 1.0f, float green = 0.0f, float blue = 0.0f) {
        grid->cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] = {
            red * weight, green * weight, blue * weight, weight};
        grid->rowUsed[static_cast<std::size_t>(row)] = true;
    }
    SpectrumShapes shapes(float time = 0.0f, const SDL_Rect& body = kBody) const {
        SpectrumShapes result;
        makeSpectrumShapes(*grid, spectrumLayout(body), time, result);
        return result;
    }
    // Of a row, whether it has columns or not.
    SurfaceRow rowOf(int row, float time = 0.0f, const SDL_Rect& body = kBody) const {
        return shapes(time, body).rows.at(static_cast<std::size_t>(49 - row));
    }
    SurfaceColumn columnOf(int row, float time = 0.0f, const SDL_Rect& body = kBody) const {
        return rowOf(row, time, body).columns.at(0);
    }

    std::unique_ptr<SpectrumGrid> grid = std::make_unique<SpectrumGrid>();
};

TEST_F(SpectrumShape, AnEmptyGridHasNone) {
    const SpectrumShapes none = shapes();
    EXPECT_TRUE(none.glow.empty());
    EXPECT_TRUE(none.crest.empty());
    for (const SurfaceRow& row : none.rows) {
        EXPECT_TRUE(row.columns.empty());
        EXPECT_EQ(row.line.rect.h, 0);
    }
}

TEST_F(SpectrumShape, WhatIsInAnUnusedRowIsNotDrawn) {
    put(5, 40, 2.0f);
    grid->rowUsed[5] = false;
    const SpectrumShapes none = shapes();
    EXPECT_TRUE(none.glow.empty());
    EXPECT_TRUE(none.crest.empty());
    EXPECT_TRUE(rowOf(5).columns.empty());
    EXPECT_EQ(rowOf(5).line.rect.h, 0);
}

TEST_F(SpectrumShape, AGlowSurroundsItsColumnTwice) {
    put(0, 40, 1.0f, 1.0f, 0.5f, 0.25f);
    const std::vector<TintedRect> glow = shapes().glow;
    ASSERT_EQ(glow.size(), 2u);
    EXPECT_EQ(glow[0].rect, (SDL_Rect{280 - 5, 368 - 130 - 5, 6 + 10, 130 + 10}));
    EXPECT_EQ(glow[0].color, (SDL_Color{200, 100, 50, 40}));
    EXPECT_EQ(glow[1].rect, (SDL_Rect{280 - 3, 368 - 130 - 3, 6 + 6, 130 + 6})) << "by 5 / 2 smaller";
    EXPECT_EQ(glow[1].color, (SDL_Color{200, 100, 50, 25}));
}

TEST_F(SpectrumShape, AWeakGlowIsSingleAndAFaintOneIsNone) {
    put(0, 40, 0.8f);
    ASSERT_EQ(shapes().glow.size(), 1u);
    put(0, 40, 0.15f);
    const std::vector<TintedRect> glow = shapes().glow;
    ASSERT_EQ(glow.size(), 1u);
    EXPECT_EQ(glow[0].rect, (SDL_Rect{277, 368 - 19 - 3, 12, 25})) << "19.5, cut";
    EXPECT_EQ(glow[0].color, (SDL_Color{30, 0, 0, 6}));
    put(0, 40, 0.149f);
    EXPECT_TRUE(shapes().glow.empty());
}

TEST_F(SpectrumShape, AStrongGlowHasItsLimits) {
    put(0, 40, 10.0f, 0.4f, 0.1f, 0.9f);
    const std::vector<TintedRect> glow = shapes().glow;
    ASSERT_EQ(glow.size(), 2u);
    EXPECT_EQ(glow[0].rect, (SDL_Rect{272, 368 - 138, 22, 146})) << "8 pixels around";
    EXPECT_EQ(glow[0].color, (SDL_Color{200, 50, 200, 90}));
    EXPECT_EQ(glow[1].rect, (SDL_Rect{276, 368 - 134, 14, 138}));
    EXPECT_EQ(glow[1].color, (SDL_Color{200, 50, 200, 60}));
}

TEST_F(SpectrumShape, AGlowFadesWithTheDistance) {
    put(20, 40, 1.0f, 0.0f, 1.0f, 0.0f);
    const std::vector<TintedRect> glow = shapes().glow;
    ASSERT_EQ(glow.size(), 1u) << "0.72 is too weak for a second one";
    EXPECT_EQ(glow[0].rect, (SDL_Rect{280 - 4, 248 - 73 - 4, 5 + 8, 73 + 8}));
    EXPECT_EQ(glow[0].color, (SDL_Color{0, 144, 0, 28}));
}

TEST_F(SpectrumShape, FarRowsComeFirst) {
    put(3, 10, 0.5f);
    put(30, 10, 0.5f);
    put(30, 11, 0.5f);
    put(12, 10, 0.5f);
    const SpectrumShapes all = shapes();
    ASSERT_EQ(all.glow.size(), 4u);
    for (std::size_t i = 1; i < 4; ++i)
        EXPECT_GE(all.glow[i].rect.y + all.glow[i].rect.h, all.glow[i - 1].rect.y + all.glow[i - 1].rect.h);
    EXPECT_EQ(all.rows.at(49 - 30).columns.size(), 2u);
    EXPECT_LT(all.rows[49 - 30].columns[0].rect.x, all.rows[49 - 30].columns[1].rect.x);
    EXPECT_EQ(all.rows.at(49 - 12).columns.size(), 1u);
}

TEST_F(SpectrumShape, BlackNeitherGlowsNorIsLeftOut) {
    put(0, 40, 1.0f, 0.0f, 0.0f, 0.0f);
    EXPECT_TRUE(shapes().glow.empty()) << "it would add nothing";
    EXPECT_EQ(columnOf(0).color, (SDL_Color{0, 0, 0, 240}));
}

TEST_F(SpectrumShape, AColumnStandsOnItsRow) {
    put(20, 40, 0.5f, 0.5f, 0.25f, 0.0f);
    const SurfaceColumn column = columnOf(20);
    EXPECT_EQ(column.rect, (SDL_Rect{280, 248 - 36, 5, 36})) << "36.5, cut";
    // 0.5 * 1.4 * 0.72 = 0.504, and the mean brightened by 1.3.
    EXPECT_EQ(column.color, (SDL_Color{83, 41, 0, 172}));
    EXPECT_EQ(column.highlights, 2);
    EXPECT_TRUE(column.shaded);
}

TEST_F(SpectrumShape, ColumnsHaveAHeightOfOnePixelAtLeastAndALimit) {
    put(20, 40, 0.005f);
    EXPECT_EQ(columnOf(20).rect, (SDL_Rect{280, 247, 5, 1}));
    put(20, 40, 100.0f);
    EXPECT_EQ(columnOf(20).rect, (SDL_Rect{280, 248 - 101, 5, 101})) << "101.4";
    put(20, 40, 0.0049f);
    EXPECT_TRUE(rowOf(20).columns.empty());
}

TEST_F(SpectrumShape, BrighteningHasItsLimits) {
    put(20, 40, 1.0f, 0.9f, 0.5f, 0.008f);
    // 1.4 * 0.72 = 1.008; 0.9 becomes 1 at most, and 257 255.
    EXPECT_EQ(columnOf(20).color, (SDL_Color{255, 167, 2, 172}));
    put(20, 40, 2.0f, 0.01f, 0.01f, 0.0f);
    EXPECT_EQ(columnOf(20).color, (SDL_Color{5, 5, 0, 172})) << "too dark to be brightened";
    put(20, 40, 50.0f, 0.2f, 0.0f, 0.0f);
    EXPECT_EQ(columnOf(20).color.r, 143) << "3 * 0.72 * 0.26 * 255, however strong";
}

TEST_F(SpectrumShape, TheNearTwentyRowsRipple) {
    for (const int row : {0, 7, 19}) {
        const double d = row / 50.0;
        for (const int column : {0, 13, 79}) {
            clearSpectrumGrid(*grid);
            put(row, column, 0.4f, 0.5f, 0.0f, 0.0f);
            std::set<int> shades;
            for (const float time : {0.0f, 0.7f, 1.9f, 40.0f}) {
                const double ripple =
                    std::sin(column * 0.15 + 2.0 * static_cast<double>(time) - d * 3.0) * 0.12 + 1.0;
                const double wanted = 0.56 * ripple * (1.0 - 0.7 * d) * 0.65 * 255.0;
                const int seen = columnOf(row, time).color.r;
                EXPECT_NEAR(seen + 0.5, wanted, 0.51) << row << ", " << column << " at " << time;
                shades.insert(seen);
            }
            EXPECT_GT(shades.size(), 2u);
        }
    }
}

TEST_F(SpectrumShape, FartherRowsStandStill) {
    for (const int row : {20, 21, 49}) {
        put(row, 13, 0.4f, 0.5f, 0.0f, 0.0f);
        const double wanted = 0.56 * (1.0 - 0.7 * row / 50.0) * 0.65 * 255.0;
        for (const float time : {0.0f, 0.7f, 1.9f})
            EXPECT_NEAR(columnOf(row, time).color.r + 0.5, wanted, 0.51) << row;
    }
}

TEST_F(SpectrumShape, ATimeThatIsNoNumberDoesNoHarm) {
    put(3, 13, 0.4f);
    put(30, 13, 0.4f);
    EXPECT_EQ(columnOf(3, std::numeric_limits<float>::quiet_NaN()).color.r, 0);
    EXPECT_EQ(columnOf(3, std::numeric_limits<float>::infinity()).color.r, 0);
    EXPECT_GT(columnOf(30, std::numeric_limits<float>::quiet_NaN()).color.r, 0);
}

TEST_F(SpectrumShape, HighlightsAndShadeNeedHeight) {
    const auto highlights = [&](float height) {
        put(0, 40, height / 130.0f);
        return columnOf(0).highlights;
    };
    EXPECT_EQ(highlights(2.9f), 0);
    EXPECT_EQ(highlights(3.1f), 1);
    EXPECT_EQ(highlights(5.9f), 1);
    EXPECT_EQ(highlights(6.1f), 2);
    highlights(1.9f);
    EXPECT_FALSE(columnOf(0).shaded);
    highlights(2.1f);
    EXPECT_TRUE(columnOf(0).shaded);
}

TEST_F(SpectrumShape, HighlightsAndShadeNeedWidth) {
    put(0, 40, 1.0f);
    const auto at = [&](int width) { return columnOf(0, 0.0f, {0, 0, width, 354}); };
    EXPECT_EQ(at(158).highlights, 0);
    EXPECT_EQ(at(160).highlights, 2);
    EXPECT_FALSE(at(238).shaded);
    EXPECT_TRUE(at(240).shaded);
}

TEST_F(SpectrumShape, HighlightAndShadeAreMadeOfTheColour) {
    EXPECT_EQ(highlightColor({100, 200, 7, 9}), (SDL_Color{180, 255, 40, 9}));
    EXPECT_EQ(shadeColor({100, 255, 7, 9}), (SDL_Color{40, 102, 2, 9}));
}

TEST_F(SpectrumShape, ALineCrossesTheTenNearestRowsIfUsed) {
    for (int row = 0; row < 50; row += 3)
        put(row, 40, 0.02f);
    for (int row = 0; row < 50; ++row) {
        const TintedRect line = rowOf(row).line;
        if (row >= 10 || row % 3 != 0) {
            EXPECT_EQ(line.rect.h, 0) << row;
            continue;
        }
        const int half = static_cast<int>(278.0 * (1.0 - 0.011 * row));
        EXPECT_EQ(line.rect, (SDL_Rect{280 - half, 368 - 6 * row, 2 * half + 1, 1})) << row;
        EXPECT_EQ(line.color, (SDL_Color{120, 90, 200, static_cast<Uint8>(40 - 4 * row)})) << row;
    }
}

TEST_F(SpectrumShape, TheTwelveNearestUsedRowsHaveACrest) {
    for (int row = 4; row < 50; row += 3)
        put(row, 40, 1.0f);  // 4, 7, ... 49: sixteen rows
    const std::vector<TintedRect> crest = shapes().crest;
    std::multiset<int> tops;
    for (const TintedRect& shape : crest)
        tops.insert(shape.rect.y);
    std::multiset<int> wanted;
    for (int i = 0; i < 12; ++i) {
        const double d = (4 + 3 * i) / 50.0;
        const int height = static_cast<int>(130.0 * (1.0 - 0.55 * d) * (1.0 - 0.7 * d));
        wanted.insert(368 - static_cast<int>(std::lround(300.0 * d)) - height);
    }
    EXPECT_EQ(tops, wanted);
}

TEST_F(SpectrumShape, ACrestIsASmallPaleTop) {
    put(20, 40, 0.5f, 0.5f, 0.9f, 0.0f);
    std::vector<TintedRect> crest = shapes().crest;
    ASSERT_EQ(crest.size(), 1u);
    EXPECT_EQ(crest[0].rect, (SDL_Rect{280, 248 - 36, 5, 6}));
    EXPECT_EQ(crest[0].color, (SDL_Color{187, 255, 60, 12})) << "0.5 * 0.72 * 35 = 12.6";
    put(20, 40, 20.0f);
    EXPECT_EQ(shapes().crest.at(0).color.a, 80);
    put(20, 40, 0.299f);
    EXPECT_TRUE(shapes().crest.empty());
    put(49, 40, 0.3f);  // 0.3 * 59.93 * 0.314 = 5.6 pixels high
    crest = shapes().crest;
    ASSERT_EQ(crest.size(), 1u);
    EXPECT_EQ(crest[0].rect.h, 1) << "1.69, cut";
    EXPECT_EQ(crest[0].rect.y, 74 - 5);
}

TEST_F(SpectrumShape, TwoNotesOfOneFrequencyStandHigher) {
    addSpectrumNote(*grid, {550, 0.6f, 0.5f}, 1);
    const SurfaceColumn one = rowOf(40).columns.at(7);
    addSpectrumNote(*grid, {550, 0.6f, 0.5f}, 1);
    const SurfaceColumn two = rowOf(40).columns.at(7);
    EXPECT_NEAR(two.rect.h, 2 * one.rect.h, 1);
    EXPECT_EQ(two.rect.y + two.rect.h, one.rect.y + one.rect.h);
    EXPECT_GT(two.color.g, one.color.g);
}

TEST_F(SpectrumShape, TheMemoryIsUsedAnew) {
    put(3, 10, 0.5f);
    SpectrumShapes kept = shapes();
    clearSpectrumGrid(*grid);
    put(30, 20, 0.5f);
    makeSpectrumShapes(*grid, spectrumLayout(kBody), 0.0f, kept);
    EXPECT_EQ(kept.glow.size(), 1u);
    EXPECT_EQ(kept.crest.size(), 1u);
    EXPECT_TRUE(kept.rows.at(49 - 3).columns.empty());
    EXPECT_EQ(kept.rows.at(49 - 3).line.rect.h, 0);
    EXPECT_EQ(kept.rows.at(49 - 30).columns.size(), 1u);
}

}  // namespace
}  // namespace veloria
