#include "views/spectrum/spectrum_layout.h"

#include <algorithm>

#include "views/spectrum/spectrum_grid.h"

namespace veloria {

namespace {

constexpr int kBaseInset = 10;
constexpr int kTopInset = 44;
constexpr int kLabelDrop = 2;  // below the near edge
constexpr int kLowLabelInset = 4;
constexpr int kHighLabelFromRight = 52;
constexpr float kFarNarrowing = 0.55f;  // of width and height, at the far edge
constexpr float kFarFading = 0.7f;
constexpr float kTallest = 130.0f;

}  // namespace

SpectrumLayout spectrumLayout(const SDL_Rect& body) {
    SpectrumLayout layout;
    layout.body = body;
    layout.baseY = body.y + body.h - kBaseInset;
    layout.topY = body.y + kTopInset;
    layout.spanY = layout.baseY - layout.topY;
    layout.centreX = body.x + body.w / 2;
    layout.halfW = body.w / 2;
    layout.lowLabel = {body.x + kLowLabelInset, layout.baseY + kLabelDrop};
    layout.highLabel = {body.x + body.w - kHighLabelFromRight, layout.baseY + kLabelDrop};
    return layout;
}

SpectrumRow spectrumRow(const SpectrumLayout& layout, int row) {
    SpectrumRow result;
    const float d = static_cast<float>(row) / static_cast<float>(kSpectrumRows);
    result.fraction = d;
    result.fade = 1.0f - d * kFarFading;
    result.tallest = kTallest * (1.0f - kFarNarrowing * d);
    result.y = layout.baseY - static_cast<int>(static_cast<float>(layout.spanY) * d);
    result.half = static_cast<int>(static_cast<float>(layout.halfW) * (1.0f - d * kFarNarrowing));
    result.left = layout.centreX - result.half;
    result.columnWidth = std::max(1, 2 * result.half / kSpectrumColumns);
    return result;
}

int spectrumColumnX(const SpectrumRow& row, int column) {
    return row.left + column * 2 * row.half / kSpectrumColumns;
}

int spectrumColumnSpan(const SpectrumRow& row, int column) {
    return std::max(1, spectrumColumnX(row, column + 1) - spectrumColumnX(row, column));
}

}  // namespace veloria
