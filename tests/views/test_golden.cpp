// Each view from fixed state at two sizes, held against the picture that was looked at.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>

#include "tests/views/golden.h"
#include "views/harmonics_spiral.h"
#include "views/kathara/kathara_host.h"
#include "views/kathara/solfeggio_grid.h"
#include "views/lotus/lotus.h"
#include "views/polar_rose.h"
#include "views/sacred/sacred_panel.h"
#include "views/scope.h"
#include "views/shadow/shadow_view.h"
#include "views/spectrum/spectrum.h"

namespace veloria {
namespace {

constexpr SDL_Rect kSmall{0, 0, 200, 150};
constexpr SDL_Rect kLarge{0, 0, 360, 340};
constexpr float kTime = 0.75f;

class Golden : public test::DrawTest {
  protected:
    Golden() : DrawTest(kLarge.w, kLarge.h) {
        const float notes[] = {147.0f, 258.0f, 396.0f, 528.5f, 741.0f, 963.0f};
        float progress = 0.1f;
        for (const float hz : notes) {
            snapshot.notes.push_back({.frequency = hz, .progress = progress, .pan = progress});
            progress += 0.15f;
        }
        for (std::size_t i = 0; i < snapshot.engine.scopeRing.size(); ++i)
            snapshot.engine.scopeRing[i] = wave(static_cast<double>(i));
        for (std::size_t i = 0; i < snapshot.scope.samples.size(); ++i)
            snapshot.scope.samples[i] = wave(static_cast<double>(i));
        snapshot.shadowHeld[0] = snapshot.shadowHeld[40] = snapshot.shadowHeld[215] = true;
        snapshot.reflectionHeld[5] = snapshot.rotationHeld[60] = true;
        context.ticks = 5000;
    }

    // Whole periods in both rings.
    static float wave(double sample) {
        return static_cast<float>(0.6 * std::sin(2.0 * M_PI * sample / 64.0) +
                                  0.3 * std::sin(2.0 * M_PI * sample / 16.0));
    }

    // The panel alone, at both sizes.
    void expectGolden(const std::string& name, const std::function<void(const PanelState&)>& draw) {
        for (const auto& [suffix, rect] : {std::pair{"_small", kSmall}, std::pair{"", kLarge}}) {
            screen.clear(test::kBackdrop);
            draw({.open = true, .rect = rect});
            EXPECT_TRUE(test::isGolden(test::crop(picture(), rect), name + suffix));
        }
    }

    FrameSnapshot snapshot;
};

TEST_F(Golden, Lotus) {
    LotusState state;
    for (std::size_t i = 0; i < state.lotusEnergy.size(); ++i)
        state.lotusEnergy[i] = 0.05f * static_cast<float>(i % 5);
    expectGolden("lotus", [&](const PanelState& panel) {
        state.viewTime = kTime;
        drawLotusPanel(context, panel, state);
    });
}

TEST_F(Golden, PolarRose) {
    expectGolden("polar_rose",
                 [&](const PanelState& panel) { drawPolarRosePanel(context, panel, snapshot); });
}

TEST_F(Golden, SacredGeometry) {
    SacredState state;
    expectGolden("sacred", [&](const PanelState& panel) {
        drawSacredPanel(context, panel, state, snapshot, 1, kTime, nullptr);
    });
}

TEST_F(Golden, SacredPage) {
    SacredState state;
    state.sacredResearchMode = true;
    expectGolden("sacred_page", [&](const PanelState& panel) {
        drawSacredPanel(context, panel, state, snapshot, 1, kTime, nullptr);
    });
}

TEST_F(Golden, Harmonics) {
    expectGolden("harmonics",
                 [&](const PanelState& panel) { drawHarmonicsPanel(context, panel, snapshot, 8, 0, kTime); });
}

TEST_F(Golden, Spectrum) {
    const auto state = std::make_unique<SpectrumState>();
    expectGolden("spectrum", [&](const PanelState& panel) {
        drawSpectrumPanel(context, panel, *state, snapshot, 0, kTime);
    });
}

TEST_F(Golden, ShadowGrid) {
    const ShadowState state;
    expectGolden("shadow_grid",
                 [&](const PanelState& panel) { drawShadowPanel(context, panel, state, snapshot, kTime); });
}

TEST_F(Golden, ShadowPage) {
    const ShadowState state{.shadowPage = 1};
    expectGolden("shadow_page",
                 [&](const PanelState& panel) { drawShadowPanel(context, panel, state, snapshot, kTime); });
}

TEST_F(Golden, SolfeggioGrid) {
    KatharaState state;
    state.kathara3dMode = false;
    expectGolden("solfeggio_grid", [&](const PanelState& panel) {
        drawKatharaPanel(context, panel, state, snapshot, kTime, nullptr);
    });
}

TEST_F(Golden, KatharaScene) {
    KatharaState state;
    expectGolden("kathara", [&](const PanelState& panel) {
        drawKatharaPanel(context, panel, state, snapshot, kTime, nullptr);
    });
}

TEST_F(Golden, Scope) {
    const ScopeState state;
    expectGolden("scope", [&](const PanelState& panel) { drawScopePanel(context, panel, state, snapshot); });
}

// The comparison itself: it must see a difference, and forgive a rounding.
TEST_F(Golden, APictureThatDiffersIsNotTheKeptOne) {
    if (std::getenv("VELORIA_WRITE_GOLDEN") != nullptr) GTEST_SKIP() << "pictures are being written";
    test::Picture kept = test::readPng(test::goldenPath("scope"));
    ASSERT_EQ(kept.w, kLarge.w);
    for (SDL_Color& pixel : kept.pixels)
        pixel.g = static_cast<Uint8>(pixel.g < 246 ? pixel.g + 9 : pixel.g - 9);
    EXPECT_TRUE(test::isGolden(kept, "scope"));
    for (std::size_t i = 0; i < kept.pixels.size() / 100; ++i)
        kept.pixels[i].b = static_cast<Uint8>(kept.pixels[i].b ^ 0x80);
    EXPECT_FALSE(test::isGolden(kept, "scope"));
    EXPECT_FALSE(test::isGolden(kept, "no_such_picture"));
}

}  // namespace
}  // namespace veloria
