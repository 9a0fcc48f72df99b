// The flower and the enneagram put together anew, line by line with a call for each: every pixel must be the
// same, so that no colour, no count of segments and no order of two layers may slip.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "tests/ui/offscreen.h"
#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "views/lotus/lotus.h"
#include "views/sacred/sacred_geometry.h"

namespace veloria {
namespace {

using test::Picture;

constexpr float kTwoPi = 6.2831855f;
constexpr SDL_Rect kBody{10, 20, 420, 400};  // middle at (220, 220)

class LineByLine : public test::DrawTest {
  protected:
    LineByLine() : DrawTest(440, 440) {}
    static int differing(const Picture& one, const Picture& other) {
        int count = 0;
        for (std::size_t i = 0; i < one.pixels.size(); ++i)
            count += one.pixels[i] == other.pixels[i] ? 0 : 1;
        return count;
    }

    SDL_Renderer* r = screen.renderer;
};

class SacredLineByLine : public LineByLine {
  protected:
    static constexpr float kRadius = 400.0f * 0.38f;

    static SDL_FPoint onCircle(float radius, float angle) {
        return {220.0f + radius * std::cos(angle), 220.0f + radius * std::sin(angle)};
    }
    static SDL_FPoint point(float ninths) { return onCircle(kRadius, ninths * 0.69813174f - 1.5707964f); }
    void square(SDL_FPoint at, int reach, SDL_Color color) {
        fillRect(
            r, {static_cast<int>(at.x) - reach, static_cast<int>(at.y) - reach, 2 * reach + 1, 2 * reach + 1},
            color);
    }
    void thick(SDL_FPoint from, SDL_FPoint to, SDL_Color color, int width, SDL_BlendMode blend) {
        drawThickLine2dF(r, from.x, from.y, to.x, to.y, color, width, blend);
    }
    void circle(float radius, int segments, SDL_Color color, SDL_BlendMode blend) {
        std::vector<SDL_FPoint> line;
        for (int k = 0; k < segments; ++k)
            line.push_back(onCircle(radius, static_cast<float>(k) * (kTwoPi / static_cast<float>(segments))));
        line.push_back(line.front());
        SDL_SetRenderDrawBlendMode(r, blend);
        SDL_SetRenderDrawColor(r, color.r, color.g, color.b, color.a);
        SDL_RenderDrawLinesF(r, line.data(), static_cast<int>(line.size()));
    }
    void figure() {
        circle(kRadius - 1.0f, 120, {25, 18, 40, 35}, SDL_BLENDMODE_ADD);
        circle(kRadius + 1.0f, 120, {25, 18, 40, 35}, SDL_BLENDMODE_ADD);
        circle(kRadius, 120, {60, 45, 90, 160}, SDL_BLENDMODE_BLEND);
        circle(0.15f * kRadius - 1.0f, 60, {18, 14, 30, 25}, SDL_BLENDMODE_ADD);
        circle(0.15f * kRadius + 1.0f, 60, {18, 14, 30, 25}, SDL_BLENDMODE_ADD);
        circle(0.15f * kRadius, 60, {40, 30, 65, 80}, SDL_BLENDMODE_BLEND);
        constexpr float kTriangle[][2] = {{0, 3}, {3, 6}, {6, 0}};
        for (const auto& [from, to] : kTriangle)
            thick(point(from), point(to), {22, 16, 35, 30}, 4, SDL_BLENDMODE_ADD);
        for (const auto& [from, to] : kTriangle)
            thick(point(from), point(to), {55, 42, 85, 90}, 1, SDL_BLENDMODE_BLEND);
        constexpr float kHexad[][2] = {{1, 4}, {4, 2}, {2, 8}, {8, 5}, {5, 7}, {7, 1}};
        for (const auto& [from, to] : kHexad)
            thick(point(from), point(to), {18, 14, 28, 25}, 4, SDL_BLENDMODE_ADD);
        SDL_SetRenderDrawBlendMode(r, SDL_BLENDMODE_BLEND);
        SDL_SetRenderDrawColor(r, 45, 35, 70, 70);
        for (const auto& [from, to] : kHexad)
            SDL_RenderDrawLineF(r, point(from).x, point(from).y, point(to).x, point(to).y);
        for (int i = 0; i < 9; ++i) {
            square(point(static_cast<float>(i)), 3, {140, 120, 200, 220});
            const SDL_FPoint digit =
                onCircle(kRadius + 16.0f, static_cast<float>(i) * 0.69813174f - 1.5707964f);
            DrawTextCentered(context, std::to_string(i == 0 ? 9 : i),
                             {static_cast<int>(digit.x), static_cast<int>(digit.y), 0, 0}, fonts.fontLabel,
                             {180, 160, 220, 220});
        }
    }
    // A note between these corners, in its colour and at its own alpha.
    void note(const std::array<SDL_FPoint, 3>& corners, SDL_Color color, SDL_Color bright) {
        const auto third = [](Uint8 value) { return static_cast<Uint8>(value / 3); };
        const SDL_Color glow{third(color.r), third(color.g), third(color.b), third(color.a)};
        for (std::size_t i = 0; i < 3; ++i)
            thick(corners[i], corners[(i + 1) % 3], glow, 6, SDL_BLENDMODE_ADD);
        for (std::size_t i = 0; i < 3; ++i)
            thick(corners[i], corners[(i + 1) % 3], color, 2, SDL_BLENDMODE_BLEND);
        for (const SDL_FPoint& corner : corners)
            square(corner, 4, bright);
    }
};

TEST_F(SacredLineByLine, TheFigureIsTheSame) {
    drawSacredGeometry(context, kBody, {}, 0.0f, nullptr);
    const Picture seen = picture();
    screen.clear(test::kBackdrop);
    figure();
    EXPECT_EQ(differing(seen, picture()), 0);
}

TEST_F(SacredLineByLine, NotesAreTheSame) {
    const std::vector<ColouredNote> notes = {
        {396.5f, 0.5f, {30, 174, 175, 255}}, {1234.5f, 0.02f, {250, 90, 10, 255}}, {174.0f, 0.95f, {}}};
    const float time = 0.7f;
    drawSacredGeometry(context, kBody, notes, time, nullptr);
    const Picture seen = picture();
    screen.clear(test::kBackdrop);
    figure();
    const auto alpha = [=](float hz, float envelope) {
        const float pulse = std::sin(hz * 0.01f + time * 3.0f) * 0.12f + 1.0f;
        return static_cast<Uint8>(std::min(255, static_cast<int>(pulse * envelope * 210.0f)));
    };
    const Uint8 first = alpha(396.5f, 1.0f);
    note({point(3), point(0), point(6.5f)}, {30, 174, 175, first}, {110, 254, 255, first});
    const Uint8 second = alpha(1234.5f, 0.02f / 0.05f);
    note({point(2), point(3), point(4.5f)}, {250, 90, 10, second}, {255, 170, 90, second});
    const Uint8 third = alpha(174.0f, (1.0f - 0.95f) / 0.1f);
    note({point(1), point(7), point(4)}, {0, 0, 0, third}, {80, 80, 80, third});
    EXPECT_EQ(differing(seen, picture()), 0);
}

class LotusLineByLine : public LineByLine {
  protected:
    static constexpr float kRadius = 266.0f;  // 2 * 400 / 3

    static SDL_Point at(float radius, float angle) {
        return {220 + static_cast<int>(std::cos(angle) * radius),
                220 + static_cast<int>(std::sin(angle) * radius)};
    }
    void line(SDL_Point from, SDL_Point to, SDL_Color color, int alpha) {
        drawLine(r, from.x, from.y, to.x, to.y, withAlpha(color, alpha));
    }
    void ring(float radius, int sides, float turn, SDL_Color color, int alpha) {
        for (int k = 1; k <= sides; ++k) {
            const float before = static_cast<float>(k - 1) * kTwoPi / static_cast<float>(sides) + turn;
            const float after = static_cast<float>(k) * kTwoPi / static_cast<float>(sides) + turn;
            line(at(radius, before), at(radius, after), color, alpha);
        }
    }
    void petal(float angle, float halfWidth, float length, int steps, SDL_Color color, int alpha) {
        for (int k = 1; k <= steps; ++k) {
            const float w = std::sin(static_cast<float>(k) / static_cast<float>(steps) * (kTwoPi / 2.0f));
            const int own = static_cast<int>(static_cast<float>(alpha) * w);
            line(at(w * length, angle - w * halfWidth), at(w * length, angle + w * halfWidth), color, own);
        }
    }
    void soundLayers(const LotusState& state, float mean) {
        const float t = state.viewTime;
        const auto& energy = state.lotusEnergy;
        const auto whole = [](float value) { return static_cast<int>(value); };
        for (int k = 0; k < 24; ++k)
            line({220, 220}, at(1.4f * kRadius, static_cast<float>(k) * kTwoPi / 24.0f + 0.18f * t),
                 {120, 110, 220, 0}, std::min(50, whole(mean * 40.0f + 8.0f)));
        ring(0.35f * kRadius, 12, 0.3f * t, {100, 75, 220, 0}, std::min(50, whole(mean * 35.0f + 10.0f)));
        ring(0.75f * kRadius, 12, -0.3f * t, {100, 75, 220, 0}, std::min(50, whole(mean * 35.0f + 10.0f)));
        const auto tip = [&](std::size_t i) {
            return at(std::min(1.2f * kRadius, (2.0f * energy[i] + 0.3f) * kRadius),
                      static_cast<float>(i) * (kTwoPi / 12.0f) + t);
        };
        for (std::size_t i = 0; i < 12; ++i)
            line(tip(i), tip((i + 5) % 12), {255, 190, 60, 0}, std::min(100, whole(mean * 80.0f + 20.0f)));
        for (int k = 0; k < 24; ++k)
            line({220, 220},
                 at(std::min(1.4f * kRadius, (0.8f * mean + 0.8f) * kRadius),
                    static_cast<float>(k) * kTwoPi / 24.0f + 0.06f * t),
                 hslToRgb(std::fmod(15.0f * static_cast<float>(k) + 20.0f * t, 360.0f), 0.7f, 0.55f),
                 std::min(50, whole(mean * 35.0f + 6.0f)));
        for (const float layer : {2.0f, 1.0f}) {
            const float radius = kRadius * (1.0f + 0.12f * layer);
            for (std::size_t i = 0; i < 12; ++i) {
                const float length =
                    std::max(0.15f * radius, std::min(1.2f * radius, (2.0f * energy[i] + 0.3f) * radius));
                petal(static_cast<float>(i) * (kTwoPi / 12.0f) + t, 0.4f, length, 16,
                      hslToRgb(30.0f * static_cast<float>(i), 0.9f, 0.6f),
                      std::min(80, whole((mean * 80.0f + 18.0f) / layer)));
            }
        }
    }
    void flower(const LotusState& state, float mean) {
        const float t = state.viewTime;
        const auto& energy = state.lotusEnergy;
        for (std::size_t i = 0; i < 12; ++i) {
            const float hue = 30.0f * static_cast<float>(i);
            const float angle = static_cast<float>(i) * (kTwoPi / 12.0f) + t;
            const float length =
                std::max(0.18f * kRadius, std::min(1.3f * kRadius, (2.5f * energy[i] + 0.3f) * kRadius));
            petal(angle, 0.3f, length, 18, hslToRgb(hue, 0.95f, std::min(0.72f, 3.0f * energy[i] + 0.38f)),
                  170);
            line({220, 220}, at(length, angle), hslToRgb(hue, 1.0f, 0.85f), 200);
        }
        for (std::size_t i = 0; i < 12; ++i) {
            const float opposite = energy[(i + 6) % 12];
            const float length =
                std::max(0.1f * kRadius, std::min(0.8f * kRadius, (2.0f * opposite + 0.18f) * kRadius));
            petal(static_cast<float>(i) * (kTwoPi / 12.0f) - 1.5f * t + 0.2617994f, 0.22f, length, 12,
                  hslToRgb(std::fmod(30.0f * static_cast<float>(i) + 180.0f, 360.0f), 0.75f, 0.5f), 120);
        }
        const int c = std::min(24, static_cast<int>(30.0f * mean + 6.0f));
        for (int k = 3; k >= 1; --k)
            ring(static_cast<float>(c + 5 * k), 36, 0.0f, {255, 170, 20, 0},
                 std::min(60, static_cast<int>(40.0f * mean / static_cast<float>(k) + 20.0f)));
        const int s = c / 2;
        fillRect(r, {220 - s, 220 - s, 2 * s, 2 * s}, {255, 210, 40, 220});
        fillRect(r, {220 - s / 2, 220 - s / 2, 2 * (s / 2), 2 * (s / 2)}, {255, 240, 160, 255});
    }
    void expectSame(const LotusState& state) {
        screen.clear(test::kBackdrop);
        drawLotus(context, kBody, state);
        const Picture seen = picture();
        float sum = 0.0f;
        for (const float energy : state.lotusEnergy)
            sum += energy;
        const float mean = sum / 12.0f;
        screen.clear(test::kBackdrop);
        {
            const ClipGuard clip(r, kBody);
            if (mean > 0.01f) soundLayers(state, mean);
            flower(state, mean);
        }
        EXPECT_EQ(differing(seen, picture()), 0) << "mean " << mean << ", time " << state.viewTime;
    }
};

TEST_F(LotusLineByLine, TheFlowerIsTheSameInSilence) {
    LotusState state;
    for (const float time : {0.0f, 0.306f, 41.7f}) {
        state.viewTime = time;
        expectSame(state);
    }
}

TEST_F(LotusLineByLine, TheFlowerIsTheSameInSoftAndLoudSound) {
    LotusState state;
    for (const float level : {0.02f, 0.15f, 0.6f, 1.0f}) {
        for (std::size_t i = 0; i < 12; ++i)
            state.lotusEnergy[i] = level * static_cast<float>(12 - (5 * i) % 12) / 12.0f;
        state.viewTime = 1.3f + level;
        expectSame(state);
    }
    state.lotusEnergy.fill(1.0f);  // all caps are reached
    expectSame(state);
}

}  // namespace
}  // namespace veloria
