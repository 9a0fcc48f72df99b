// The spectrum's landscape drawn a second time, straight from the notes and rectangle by rectangle: what
// every faster way must look like.
#pragma once

#include <SDL.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "engine/reports.h"
#include "views/shared/palettes.h"

namespace veloria::test {

struct SpectrumReference {
    struct Cell {
        float r = 0;
        float g = 0;
        float b = 0;
        float w = 0;
    };

    SpectrumReference(SDL_Renderer* target, const SDL_Rect& body, const std::vector<ActiveNote>& notes,
                      int palette)
        : renderer(target),
          baseY(body.y + body.h - 10),
          spanY(baseY - (body.y + 44)),
          centreX(body.x + body.w / 2),
          halfW(body.w / 2),
          grid(50, std::vector<Cell>(80)),
          used(50, false) {
        for (const ActiveNote& note : notes)
            add(note, palette);
    }

    void add(const ActiveNote& note, int palette) {
        const float f = note.frequency;
        const int row = std::clamp(static_cast<int>((1 - note.progress) * 49), 0, 49);
        const SDL_Color c =
            palette == 1 ? chakraColour(static_cast<double>(f)) : avatarColour(static_cast<double>(f));
        const int n = 50 - row;
        for (int q = row; q <= 49; ++q) {
            const float decay =
                n == 1 ? 1.0f : 1 - 0.8f * static_cast<float>(q - row) / static_cast<float>(n - 1);
            for (int i = std::max(0, static_cast<int>((f - 75 - 100) / 11.25f));
                 i <= std::min(79, static_cast<int>((f + 75 - 100) / 11.25f)); ++i) {
                const float u = (100 + (static_cast<float>(i) + 0.5f) * 11.25f - f) / 25;
                const float e = std::exp(-0.5f * (u * u)) * decay;
                Cell& cell = at(q, i);
                cell.r += e * c.r / 255;
                cell.g += e * c.g / 255;
                cell.b += e * c.b / 255;
                cell.w += e;
                if (e > 0.01f) used[static_cast<std::size_t>(q)] = true;
            }
        }
    }

    void draw(float time) {
        for (int row = 49; row >= 0; --row)
            if (used[static_cast<std::size_t>(row)]) glow(row);
        for (int row = 49; row >= 0; --row)
            if (used[static_cast<std::size_t>(row)]) surface(row, time);
        int rows = 0;
        for (int row = 0; row < 50 && rows < 12; ++row) {
            if (!used[static_cast<std::size_t>(row)]) continue;
            crest(row);
            ++rows;
        }
    }

    Cell& at(int row, int column) {
        return grid[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
    }
    static float fraction(int row) { return static_cast<float>(row) / 50; }
    static float fade(float d) { return 1 - d * 0.7f; }
    static float most(float d) { return 130 * (1 - 0.55f * d); }
    int rowY(float d) const { return baseY - static_cast<int>(static_cast<float>(spanY) * d); }
    int rowHalf(float d) const { return static_cast<int>(static_cast<float>(halfW) * (1 - d * 0.55f)); }
    int columnX(float d, int column) const { return centreX - rowHalf(d) + column * 2 * rowHalf(d) / 80; }
    int columnW(float d) const { return std::max(1, 2 * rowHalf(d) / 80); }
    int columnSpan(float d, int column) const {
        return std::max(1, columnX(d, column + 1) - columnX(d, column));
    }
    static float height(float d, const Cell& cell) {
        return std::min(most(d), std::max(1.0f, cell.w * most(d) * fade(d)));
    }

    void fill(int x, int y, int w, int h, float r, float g, float b, float a, SDL_BlendMode blend) {
        SDL_SetRenderDrawBlendMode(renderer, blend);
        SDL_SetRenderDrawColor(renderer, static_cast<Uint8>(r), static_cast<Uint8>(g), static_cast<Uint8>(b),
                               static_cast<Uint8>(a));
        const SDL_Rect rect{x, y, w, h};
        if (w > 0 && h > 0) SDL_RenderFillRect(renderer, &rect);
    }

    void glow(int row) {
        const float d = fraction(row);
        for (int i = 0; i < 80; ++i) {
            const Cell& c = at(row, i);
            if (c.w < 0.15f) continue;
            const float e = std::min(2.5f, c.w * fade(d));
            const int h = static_cast<int>(std::min(most(d), c.w * most(d) * fade(d)));
            const auto light = [&](int p, float alpha) {
                fill(columnX(d, i) - p, rowY(d) - h - p, columnW(d) + 2 * p, h + 2 * p,
                     std::min(200.0f, c.r / c.w * e * 200), std::min(200.0f, c.g / c.w * e * 200),
                     std::min(200.0f, c.b / c.w * e * 200), alpha, SDL_BLENDMODE_ADD);
            };
            const int p = 3 + static_cast<int>(e * 2);
            light(p, std::min(90.0f, e * 40));
            if (e > 0.8f) light(p - p / 2, std::min(60.0f, e * 25));
        }
    }

    void surface(int row, float time) {
        const float d = fraction(row);
        const float phase = 2 * time - d * 3;
        for (int i = 0; i < 80; ++i) {
            const Cell& c = at(row, i);
            if (c.w < 0.005f) continue;
            float e = std::min(3.0f, c.w * 1.4f);
            if (row < 20) e *= std::sin(static_cast<float>(i) * 0.15f + phase) * 0.12f + 1;
            e *= fade(d);
            float mean[3] = {c.r / c.w, c.g / c.w, c.b / c.w};
            const float m = std::max({mean[0], mean[1], mean[2]});
            float colour[3];
            for (int k = 0; k < 3; ++k) {
                if (m > 0.01f) mean[k] = std::min(1.0f, mean[k] * 1.3f / m * m);
                colour[k] = std::trunc(std::min(255.0f, e * mean[k] * 255));
            }
            const float alpha = std::trunc(std::min(250.0f, fade(d) * 240));
            const float h = height(d, c);
            const auto lay = [&](int x, int y, int w, int tall, float times, float plus) {
                fill(x, y, w, tall, std::min(255.0f, colour[0] * times + plus),
                     std::min(255.0f, colour[1] * times + plus), std::min(255.0f, colour[2] * times + plus),
                     alpha, SDL_BLENDMODE_BLEND);
            };
            const int x = columnX(d, i);
            const int w = columnSpan(d, i);
            const int top = rowY(d) - static_cast<int>(h);
            lay(x, top, w, static_cast<int>(h), 1, 0);
            if (h > 3 && columnW(d) >= 2) lay(x, top, w, 1, 1.5f, 30);
            if (h > 6 && columnW(d) >= 2) lay(x, top + 1, w, 1, 1.5f, 30);
            if (h > 2 && columnW(d) >= 3) lay(x + w - 1, top, 1, static_cast<int>(h), 0.4f, 0);
        }
        if (row < 10)
            fill(centreX - rowHalf(d), rowY(d), 2 * rowHalf(d) + 1, 1, 120, 90, 200,
                 static_cast<float>((10 - row) * 4), SDL_BLENDMODE_BLEND);
    }

    void crest(int row) {
        const float d = fraction(row);
        for (int i = 0; i < 80; ++i) {
            const Cell& c = at(row, i);
            if (c.w < 0.3f) continue;
            const float h = height(d, c);
            fill(columnX(d, i), rowY(d) - static_cast<int>(h), columnSpan(d, i),
                 std::min(6, static_cast<int>(h * 0.3f)), std::min(255.0f, c.r / c.w * 255 + 60),
                 std::min(255.0f, c.g / c.w * 255 + 60), std::min(255.0f, c.b / c.w * 255 + 60),
                 std::min(80.0f, c.w * fade(d) * 35), SDL_BLENDMODE_ADD);
        }
    }

    SDL_Renderer* renderer;
    int baseY;
    int spanY;
    int centreX;
    int halfW;
    std::vector<std::vector<Cell>> grid;
    std::vector<bool> used;
};

}  // namespace veloria::test
