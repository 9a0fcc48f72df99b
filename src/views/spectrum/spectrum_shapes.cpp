#include "views/spectrum/spectrum_shapes.h"

#include <algorithm>
#include <cmath>

namespace veloria {

namespace {

constexpr float kFaintestRow = 0.08f;  // odd, and kept: no row fades so far

constexpr float kGlowFrom = 0.15f;
constexpr float kGlowStrongest = 2.5f;
constexpr float kInnerGlowFrom = 0.8f;
constexpr int kGlowMargin = 3;

constexpr float kSurfaceFrom = 0.005f;
constexpr float kSurfaceStrongest = 3.0f;
constexpr float kSurfaceGain = 1.4f;
constexpr int kRippledRows = 20;
constexpr float kBrightening = 1.3f;
constexpr float kFaintestAlpha = 3.0f;
constexpr float kHighlightFrom = 3.0f;  // pixels of height
constexpr float kSecondHighlightFrom = 6.0f;
constexpr float kShadeFrom = 2.0f;
constexpr int kHighlightWidth = 2;  // pixels that a column must be wide
constexpr int kShadeWidth = 3;
constexpr int kLinedRows = 10;

constexpr int kCrestRows = 12;
constexpr float kCrestFrom = 0.3f;

struct Tint {
    float red;
    float green;
    float blue;
};

Tint meanOf(const SpectrumCell& cell) {
    return {cell.red / cell.weight, cell.green / cell.weight, cell.blue / cell.weight};
}

// Held to 0 to `most` and cut; not-a-number gives 0.
Uint8 channel(float value, float most = 255.0f) {
    if (!(value > 0.0f)) return 0;
    return static_cast<Uint8>(std::min(value, most));
}

bool isBlack(SDL_Color color) {
    return color.r == 0 && color.g == 0 && color.b == 0;
}

bool isDrawn(const SpectrumGrid& grid, int index, const SpectrumRow& row) {
    return grid.used(index) && row.fade >= kFaintestRow;
}

void addGlow(const SpectrumCell& cell, const SpectrumRow& row, int x, std::vector<TintedRect>& glow) {
    const Tint mean = meanOf(cell);
    const float e = std::min(kGlowStrongest, cell.weight * row.fade);
    const int height = static_cast<int>(std::min(row.tallest, cell.weight * row.tallest * row.fade));
    SDL_Color color{channel(mean.red * e * 200.0f, 200.0f), channel(mean.green * e * 200.0f, 200.0f),
                    channel(mean.blue * e * 200.0f, 200.0f), channel(e * 40.0f, 90.0f)};
    if (isBlack(color)) return;  // adds nothing
    const auto add = [&](int margin) {
        const SDL_Rect rect{x - margin, row.y - height - margin, row.columnWidth + 2 * margin,
                            height + 2 * margin};
        glow.push_back({rect, color});
    };
    const int margin = kGlowMargin + static_cast<int>(e * 2.0f);
    add(margin);
    if (!(e > kInnerGlowFrom)) return;
    color.a = channel(e * 25.0f, 60.0f);
    add(margin - margin / 2);
}

void makeGlow(const SpectrumGrid& grid, const SpectrumLayout& layout, std::vector<TintedRect>& glow) {
    glow.clear();
    for (int index = kSpectrumRows - 1; index >= 0; --index) {
        const SpectrumRow row = spectrumRow(layout, index);
        if (!isDrawn(grid, index, row)) continue;
        for (int column = 0; column < kSpectrumColumns; ++column) {
            const SpectrumCell& cell = grid.at(index, column);
            if (cell.weight >= kGlowFrom) addGlow(cell, row, spectrumColumnX(row, column), glow);
        }
    }
}

// Divided by the largest channel and multiplied by it again: odd, and kept.
float brightened(float value, float largest) {
    return largest > 0.01f ? std::min(1.0f, value * kBrightening / largest * largest) : value;
}

// At least a pixel.
float surfaceHeight(const SpectrumCell& cell, const SpectrumRow& row) {
    return std::min(row.tallest, std::max(1.0f, cell.weight * row.tallest * row.fade));
}

// `ripple` raises or dims a near column; 1 for none.
SDL_Color surfaceColor(const SpectrumCell& cell, const SpectrumRow& row, float ripple) {
    float e = std::min(kSurfaceStrongest, cell.weight * kSurfaceGain);
    e *= ripple;
    e *= row.fade;
    const Tint mean = meanOf(cell);
    const float largest = std::max({mean.red, mean.green, mean.blue});
    const auto shown = [&](float value) { return channel(e * brightened(value, largest) * 255.0f); };
    return {shown(mean.red), shown(mean.green), shown(mean.blue), channel(row.fade * 240.0f, 250.0f)};
}

// How the near rows move: by an eighth, in waves that run across and from row to row.
float rippleAt(int index, int column, float phase) {
    if (index >= kRippledRows) return 1.0f;
    return std::sin(static_cast<float>(column) * 0.15f + phase) * 0.12f + 1.0f;
}

void makeSurfaceRow(const SpectrumGrid& grid, int index, const SpectrumRow& row, float time,
                    SurfaceRow& surface) {
    const float phase = 2.0f * time - row.fraction * 3.0f;
    for (int column = 0; column < kSpectrumColumns; ++column) {
        const SpectrumCell& cell = grid.at(index, column);
        if (!(cell.weight >= kSurfaceFrom) || row.fade * 240.0f < kFaintestAlpha) continue;
        const float height = surfaceHeight(cell, row);
        const int pixels = static_cast<int>(height);
        SurfaceColumn shape;
        shape.rect = {spectrumColumnX(row, column), row.y - pixels, spectrumColumnSpan(row, column), pixels};
        shape.color = surfaceColor(cell, row, rippleAt(index, column, phase));
        if (row.columnWidth >= kHighlightWidth && height > kHighlightFrom)
            shape.highlights = height > kSecondHighlightFrom ? 2 : 1;
        shape.shaded = row.columnWidth >= kShadeWidth && height > kShadeFrom;
        surface.columns.push_back(shape);
    }
    if (index >= kLinedRows) return;
    const auto alpha = static_cast<Uint8>((kLinedRows - index) * 4);
    surface.line = {{row.left, row.y, 2 * row.half + 1, 1}, {120, 90, 200, alpha}};
}

void makeSurface(const SpectrumGrid& grid, const SpectrumLayout& layout, float time,
                 std::vector<SurfaceRow>& rows) {
    rows.resize(static_cast<std::size_t>(kSpectrumRows));
    std::size_t count = 0;
    for (int index = kSpectrumRows - 1; index >= 0; --index) {
        SurfaceRow& surface = rows[count++];
        surface.columns.clear();
        surface.line = {};
        const SpectrumRow row = spectrumRow(layout, index);
        if (isDrawn(grid, index, row)) makeSurfaceRow(grid, index, row, time, surface);
    }
}

void addCrest(const SpectrumCell& cell, const SpectrumRow& row, int column, std::vector<TintedRect>& crest) {
    const Tint mean = meanOf(cell);
    const float height = surfaceHeight(cell, row);
    const int depth = std::min(6, static_cast<int>(height * 0.3f));
    if (depth == 0) return;
    const SDL_Rect rect{spectrumColumnX(row, column), row.y - static_cast<int>(height),
                        spectrumColumnSpan(row, column), depth};
    const SDL_Color color{channel(mean.red * 255.0f + 60.0f), channel(mean.green * 255.0f + 60.0f),
                          channel(mean.blue * 255.0f + 60.0f),
                          channel(cell.weight * row.fade * 35.0f, 80.0f)};
    crest.push_back({rect, color});
}

void makeCrest(const SpectrumGrid& grid, const SpectrumLayout& layout, std::vector<TintedRect>& crest) {
    crest.clear();
    int rows = 0;
    for (int index = 0; index < kSpectrumRows && rows < kCrestRows; ++index) {
        const SpectrumRow row = spectrumRow(layout, index);
        if (!isDrawn(grid, index, row)) continue;
        ++rows;
        for (int column = 0; column < kSpectrumColumns; ++column) {
            const SpectrumCell& cell = grid.at(index, column);
            if (cell.weight >= kCrestFrom) addCrest(cell, row, column, crest);
        }
    }
}

}  // namespace

SDL_Color highlightColor(SDL_Color column) {
    const auto raised = [](Uint8 value) { return channel(static_cast<float>(value) * 1.5f + 30.0f); };
    return {raised(column.r), raised(column.g), raised(column.b), column.a};
}

SDL_Color shadeColor(SDL_Color column) {
    const auto dimmed = [](Uint8 value) { return channel(static_cast<float>(value) * 0.4f); };
    return {dimmed(column.r), dimmed(column.g), dimmed(column.b), column.a};
}

void makeSpectrumShapes(const SpectrumGrid& grid, const SpectrumLayout& layout, float time,
                        SpectrumShapes& shapes) {
    makeGlow(grid, layout, shapes.glow);
    makeSurface(grid, layout, time, shapes.rows);
    makeCrest(grid, layout, shapes.crest);
}

}  // namespace veloria
