// The panel "SPECTRUM 3D": its perspective, its floor, its scale and its title.
#include "views/spectrum/spectrum.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <vector>

#include "tests/ui/offscreen.h"
#include "tests/ui/text_probe.h"
#include "tests/views/spectrum/spectrum_reference.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"

namespace veloria {
namespace {

using test::isColor;
using test::isText;
using test::kBackdrop;
using test::over;
using test::Picture;
using test::SpectrumReference;

constexpr SDL_Color kTitle{150, 175, 255, 255};
constexpr SDL_Color kTitleBar{42, 40, 56, 255};
constexpr SDL_Color kScale{120, 100, 160, 180};

TEST(SpectrumPerspective, RowsRunFromTheNearEdgeToTheFarOne) {
    const SpectrumLayout layout = spectrumLayout({102, 124, 556, 354});
    EXPECT_EQ(layout.baseY, 468);
    EXPECT_EQ(layout.topY, 168);
    EXPECT_EQ(layout.spanY, 300);
    EXPECT_EQ(layout.centreX, 380);
    EXPECT_EQ(layout.halfW, 278);
    for (int index = 0; index < 50; ++index) {
        const SpectrumRow row = spectrumRow(layout, index);
        // Single precision puts rows 21, 39 and 42 just below the whole number, which is cut.
        EXPECT_EQ(row.y, 468 - 6 * index + (index == 21 || index == 39 || index == 42 ? 1 : 0)) << index;
        EXPECT_EQ(row.half, static_cast<int>(278.0 * (1.0 - 0.011 * index))) << index;
        EXPECT_EQ(row.left, 380 - row.half);
        EXPECT_NEAR(row.fade, 1.0 - 0.014 * index, 1e-6);
        EXPECT_NEAR(row.tallest, 130.0 * (1.0 - 0.011 * index), 1e-4);
    }
    EXPECT_EQ(spectrumRow(layout, 0).columnWidth, 6);
    EXPECT_EQ(spectrumRow(layout, 49).columnWidth, 3);
}

TEST(SpectrumPerspective, WholePixelsAreCutFromARowsPlace) {
    const SpectrumLayout layout = spectrumLayout({0, 0, 301, 155});
    EXPECT_EQ(layout.spanY, 101);
    EXPECT_EQ(layout.halfW, 150);
    EXPECT_EQ(spectrumRow(layout, 1).y, 145 - 2) << "2.02";
    EXPECT_EQ(spectrumRow(layout, 49).y, 145 - 98) << "98.98";
    EXPECT_EQ(spectrumRow(layout, 1).half, 148) << "148.35";
}

TEST(SpectrumPerspective, ColumnsFillTheirRowWithoutGaps) {
    for (const int width : {1, 20, 79, 160, 333, 556, 1916}) {
        const SpectrumLayout layout = spectrumLayout({7, 0, width, 300});
        for (const int index : {0, 1, 25, 49}) {
            const SpectrumRow row = spectrumRow(layout, index);
            EXPECT_EQ(spectrumColumnX(row, 0), row.left);
            EXPECT_EQ(spectrumColumnX(row, 80), row.left + 2 * row.half);
            for (int column = 0; column < 80; ++column) {
                const int next = spectrumColumnX(row, column + 1);
                const int span = spectrumColumnSpan(row, column);
                EXPECT_EQ(span, std::max(1, next - spectrumColumnX(row, column)));
                EXPECT_TRUE(span == row.columnWidth || span == row.columnWidth + 1) << width;
            }
        }
    }
}

class Spectrum : public test::DrawTest {
  protected:
    explicit Spectrum(int w = 800, int h = 520) : DrawTest(w, h) {}

    // The body alone, on a plain ground.
    Picture draw(const SDL_Rect& body, SDL_Color ground = kBackdrop) {
        screen.clear(ground);
        const ClipGuard clip(screen.renderer, body);
        drawSpectrum(context, body, *state, 0.0f);
        return picture();
    }
    std::unique_ptr<SpectrumState> state = std::make_unique<SpectrumState>();
};

constexpr SDL_Rect kBody{102, 124, 556, 354};  // near edge at 468, far one at 168, middle at 380

TEST_F(Spectrum, TheFloorHasALineEveryFiveRows) {
    constexpr SDL_Color kWhite{255, 255, 255, 255};
    const Picture seen = draw(kBody, kWhite);
    for (int index = 0; index < 50; index += 5) {
        const int half = static_cast<int>(278.0 * (1.0 - 0.011 * index));
        const int y = 468 - 6 * index;
        const auto alpha = static_cast<Uint8>(40 - index * 4 / 5);
        const SDL_Color line = over({30, 20, 50, alpha}, kWhite);
        // The outermost rays run along the rows' ends; these points lie beside them.
        EXPECT_TRUE(isColor(seen.at(380 - half + 4, y), line)) << index;
        EXPECT_TRUE(isColor(seen.at(380 + half - 4, y), line)) << index;
        EXPECT_TRUE(isColor(seen.at(396, y), line)) << index;
        EXPECT_EQ(seen.at(380 - half - 4, y), kWhite) << index;
        EXPECT_EQ(seen.at(380 + half + 4, y), kWhite) << index;
        EXPECT_EQ(seen.at(396, y - 1), kWhite) << index;
        EXPECT_EQ(seen.at(396, y + 1), kWhite) << index;
    }
}

TEST_F(Spectrum, NineRaysRunTowardsTheMiddle) {
    const Picture seen = draw(kBody);
    const SDL_Color ray = over({25, 18, 45, 30}, kBackdrop);
    for (int i = 0; i <= 8; ++i) {
        const int nearX = 102 + i * 556 / 8;
        const int farX = static_cast<int>(380 + (nearX - 380) * 0.45);
        EXPECT_TRUE(isColor(seen.at(farX, 168), ray, 1)) << i;
        // Half way, between two rows' lines.
        const int middle = static_cast<int>(std::lround((nearX + farX) / 2.0));
        int found = 0;
        for (int x = middle - 1; x <= middle + 1; ++x)
            found += isColor(seen.at(x, 319), ray, 1) ? 1 : 0;
        EXPECT_EQ(found, 1) << i;
    }
    EXPECT_EQ(seen.at(380, 167), kBackdrop);
    EXPECT_TRUE(isColor(seen.at(380, 467), ray, 1));
    EXPECT_EQ(seen.at(380, 469), kBackdrop);
}

TEST_F(Spectrum, TheScaleStandsBelowTheNearEdge) {
    screen.clear(kBackdrop);
    drawSpectrum(context, kBody, *state, 0.0f);
    const Picture seen = picture();
    EXPECT_TRUE(isText(seen, kBackdrop, "100", 106, 470, fonts.fontTiny, kScale));
    EXPECT_TRUE(isText(seen, kBackdrop, "1000 Hz", 102 + 556 - 52, 470, fonts.fontTiny, kScale));
}

TEST_F(Spectrum, TheScaleIsWholeAndClearOfTheGrip) {
    screen.clear(kBackdrop);
    drawSpectrum(context, kBody, *state, 0.0f);  // not clipped: what the body would cut off shows
    const Picture seen = picture();
    for (int y = kBody.y + kBody.h; y < seen.h; ++y) {
        for (int x = 0; x < seen.w; ++x)
            ASSERT_EQ(seen.at(x, y), kBackdrop) << x << ", " << y << " lies below the body";
    }
    for (const SDL_Rect& frame : {SDL_Rect{100, 100, 560, 380}, SDL_Rect{100, 100, 200, 150}}) {
        const PanelLayout panel = panelLayout({.open = true, .rect = frame}, 800, 600);
        const SpectrumLayout layout = spectrumLayout(panel.body);
        const SDL_Point size = measureText(fonts.fontTiny, "1000 Hz");
        EXPECT_GT(size.x, 20);
        EXPECT_LE(layout.highLabel.x + size.x, panel.corner.x);
        EXPECT_GT(layout.highLabel.x, layout.lowLabel.x + size.x);
    }
}

TEST_F(Spectrum, TheScaleLiesOverTheLandscape) {
    fillSpectrumGrid(state->grid, std::vector<ActiveNote>(20, {110, 1.0f, 0.5f}), 1);
    const auto drawFreely = [&] {
        screen.clear(kBackdrop);
        drawSpectrum(context, kBody, *state, 0.0f);
        return picture();
    };
    const Picture seen = drawFreely();
    const Fonts none;
    context.fonts = &none;
    const Picture below = drawFreely();
    EXPECT_GT(below.at(108, 471).r, 200) << "the glow reaches below the near edge";
    EXPECT_TRUE(isText(seen, below, "100", 106, 470, fonts.fontTiny, kScale));
}

TEST_F(Spectrum, OnlyTheBodyIsTouched) {
    std::vector<ActiveNote> notes;
    for (int i = 0; i < 128; ++i)
        notes.push_back({100.0f + 7.0f * static_cast<float>(i), static_cast<float>(i % 10) / 9.0f, 0.5f});
    fillSpectrumGrid(state->grid, notes, 0);
    const Picture seen = draw(kBody);
    for (int y = 0; y < seen.h; ++y) {
        for (int x = 0; x < seen.w; ++x) {
            const bool inside = x >= 102 && x < 658 && y >= 124 && y < 478;
            if (!inside) {
                ASSERT_EQ(seen.at(x, y), kBackdrop) << x << ", " << y;
            }
        }
    }
}

TEST_F(Spectrum, ABodyWithoutSizeDrawsNothing) {
    fillSpectrumGrid(state->grid, std::vector<ActiveNote>{{550, 1.0f, 0.5f}}, 0);
    for (const SDL_Rect& body :
         {SDL_Rect{100, 100, 0, 200}, SDL_Rect{100, 100, 200, 0}, SDL_Rect{100, 100, -50, -50}}) {
        screen.clear(kBackdrop);
        drawSpectrum(context, body, *state, 0.0f);
        EXPECT_EQ(touched(), 0);
    }
}

class SpectrumPanel : public Spectrum {
  protected:
    explicit SpectrumPanel(int w = 800, int h = 520) : Spectrum(w, h) {
        panel.rect = {100, 100, 560, 380};
        panel.open = true;
    }

    Picture drawPanelAt(std::int32_t palette = 0, float time = 0.0f) {
        screen.clear(kBackdrop);
        drawSpectrumPanel(context, panel, *state, *snapshot, palette, time);
        return picture();
    }
    // What the panel must look like above its scale: the same panel without notes, and the landscape over it.
    void expectLandscape(std::int32_t palette, float time) {
        const Picture seen = drawPanelAt(palette, time);
        const std::vector<ActiveNote> notes = snapshot->notes;
        snapshot->notes.clear();
        drawPanelAt(palette, time);
        const SDL_Rect body = panelLayout(panel, context.windowW, context.windowH).body;
        {
            const ClipGuard clip(screen.renderer, body);
            SpectrumReference(screen.renderer, body, notes, palette).draw(time);
        }
        const Picture wanted = picture();
        snapshot->notes = notes;
        int wrong = 0;
        const int bottom = body.y + body.h - 13;  // below lie the scale and the grip
        for (int y = 0; y < bottom; ++y) {
            for (int x = 0; x < seen.w; ++x)
                wrong += seen.at(x, y) == wanted.at(x, y) ? 0 : 1;
        }
        EXPECT_EQ(wrong, 0);
    }
    void soundMany(int count) {
        for (int i = 0; i < count; ++i) {
            const int step = i * 37 % 100;
            snapshot->notes.push_back(
                {90.0f + 9.5f * static_cast<float>(step), static_cast<float>(i * 61 % 100) / 99.0f, 0.5f});
        }
    }

    PanelState panel;
    std::unique_ptr<FrameSnapshot> snapshot = std::make_unique<FrameSnapshot>();
};

TEST_F(SpectrumPanel, ClosedItDrawsNothing) {
    panel.open = false;
    soundMany(3);
    drawPanelAt();
    EXPECT_EQ(touched(), 0);
}

TEST_F(SpectrumPanel, TheTitleNamesThePalette) {
    const int x = 108;
    const auto hasTitle = [&](std::int32_t palette, const char* title) {
        const Picture seen = drawPanelAt(palette);
        for (int y = 100; y < 110; ++y) {
            if (isText(seen, kTitleBar, title, x, y, fonts.fontRow, kTitle) ||
                isText(seen, kTitleBar, title, x, y, fonts.fontLabel, kTitle))
                return true;
        }
        return false;
    };
    EXPECT_TRUE(hasTitle(0, "SPECTRUM 3D  [Avatar]"));
    EXPECT_TRUE(hasTitle(1, "SPECTRUM 3D  [Chakra]"));
    EXPECT_FALSE(hasTitle(0, "SPECTRUM 3D  [Chakra]"));
    EXPECT_STREQ(spectrumTitle(0), "SPECTRUM 3D  [Avatar]");
    EXPECT_STREQ(spectrumTitle(1), "SPECTRUM 3D  [Chakra]");
}

TEST_F(SpectrumPanel, ShowsTheNotesOfTheSnapshot) {
    snapshot->notes = {{250, 1.0f, 0.5f}, {550, 0.4f, 0.0f}, {800, 0.0f, 1.0f}};
    expectLandscape(0, 0.0f);
    expectLandscape(1, 12.25f);
}

TEST_F(SpectrumPanel, ShowsManyNotes) {
    soundMany(128);
    expectLandscape(0, 3.0f);
    expectLandscape(1, 3.0f);
}

TEST_F(SpectrumPanel, ThePaletteColoursTheLandscape) {
    snapshot->notes = {{583.5f, 1.0f, 0.5f}};  // chakra (0, 127, 127), avatar (187, 139, 92)
    const SDL_Color avatar = drawPanelAt(0).at(380 + 20, 440);
    const SDL_Color chakra = drawPanelAt(1).at(380 + 20, 440);
    EXPECT_GT(avatar.r, avatar.b);
    EXPECT_LT(chakra.r, 40);
    EXPECT_GT(chakra.b, 100);
}

TEST_F(SpectrumPanel, NothingOfAnEarlierFrameStays) {
    const Picture empty = drawPanelAt();
    soundMany(64);
    EXPECT_FALSE(drawPanelAt() == empty);
    snapshot->notes.clear();
    EXPECT_EQ(drawPanelAt(), empty);
}

TEST_F(SpectrumPanel, ANoteOutOfReachLeavesNoTrace) {
    const Picture empty = drawPanelAt();
    const float infinity = std::numeric_limits<float>::infinity();
    snapshot->notes = {{24.9f, 1.0f, 0.5f},        {15.0f, 1.0f, 0.5f}, {1075.1f, 1.0f, 0.5f},
                       {9000.0f, 0.5f, 0.5f},      {-5.0f, 1.0f, 0.5f}, {infinity, 1, 0.5f},
                       {std::nanf(""), 1.0f, 0.5f}};
    EXPECT_EQ(drawPanelAt(), empty);
}

TEST_F(SpectrumPanel, FitsASmallPanel) {
    panel.rect = {300, 200, 200, 150};
    soundMany(40);
    expectLandscape(1, 1.0f);
}

TEST_F(SpectrumPanel, APanelTooSmallForItsTitleDoesNoHarm) {
    soundMany(40);
    for (const SDL_Rect& rect :
         {SDL_Rect{300, 200, 20, 24}, SDL_Rect{300, 200, 4, 26}, SDL_Rect{300, 200, 5, 40},
          SDL_Rect{-700, -500, 560, 380}, SDL_Rect{790, 510, 560, 380}}) {
        panel.rect = rect;
        drawPanelAt();
        SDL_Rect clip{};
        SDL_RenderGetClipRect(screen.renderer, &clip);
        EXPECT_TRUE(SDL_RectEmpty(&clip)) << "none is left set";
    }
}

class LargeSpectrumPanel : public SpectrumPanel {
  protected:
    LargeSpectrumPanel() : SpectrumPanel(1920, 1080) { panel.maximised = true; }
};

TEST_F(LargeSpectrumPanel, FillsTheWindow) {
    soundMany(128);
    expectLandscape(0, 0.5f);
    snapshot->notes = {{440, 0.9f, 0.5f}};  // a single one goes to the renderer rectangle by rectangle
    expectLandscape(0, 0.5f);
}

}  // namespace
}  // namespace veloria
