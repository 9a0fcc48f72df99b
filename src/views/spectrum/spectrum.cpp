#include "views/spectrum/spectrum.h"

#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "views/spectrum/spectrum_paint.h"

namespace veloria {

namespace {

constexpr int kFloorPitch = 5;  // rows from line to line
constexpr float kFloorAlpha = 40.0f;
constexpr int kRays = 8;                // and one more at the right edge
constexpr float kRayNarrowing = 0.45f;  // of a ray's distance from the middle, at the far edge
constexpr SDL_Color kFloorColor{30, 20, 50, 255};
constexpr SDL_Color kRayColor{25, 18, 45, 30};
constexpr SDL_Color kScaleColor{120, 100, 160, 180};
constexpr SDL_Color kTitleColor{150, 175, 255, 255};

void drawFloor(const DrawContext& context, const SpectrumLayout& layout) {
    for (int index = 0; index < kSpectrumRows; index += kFloorPitch) {
        const SpectrumRow row = spectrumRow(layout, index);
        const SDL_Color color = withAlpha(kFloorColor, static_cast<int>((1.0f - row.fraction) * kFloorAlpha));
        hLine(context.renderer, row.left, layout.centreX + row.half, row.y, color);
    }
    for (int i = 0; i <= kRays; ++i) {
        const int nearX = layout.body.x + i * layout.body.w / kRays;
        const float farX =
            static_cast<float>(layout.centreX) + static_cast<float>(nearX - layout.centreX) * kRayNarrowing;
        drawLine(context.renderer, nearX, layout.baseY, static_cast<int>(farX), layout.topY, kRayColor);
    }
}

void drawScale(const DrawContext& context, const SpectrumLayout& layout) {
    TTF_Font* font = context.fonts->fontTiny;
    DrawText(context, "100", layout.lowLabel.x, layout.lowLabel.y, font, kScaleColor);
    DrawText(context, "1000 Hz", layout.highLabel.x, layout.highLabel.y, font, kScaleColor);
}

}  // namespace

void drawSpectrum(const DrawContext& context, const SDL_Rect& body, SpectrumState& state, float time) {
    if (body.w <= 0 || body.h <= 0) return;
    const SpectrumLayout layout = spectrumLayout(body);
    drawFloor(context, layout);
    makeSpectrumShapes(state.grid, layout, time, state.shapes);
    paintSpectrum(context.renderer, state.shapes, state.scratch);
    drawScale(context, layout);
}

const char* spectrumTitle(std::int32_t spectrumPalette) {
    return spectrumPalette == 0 ? "SPECTRUM 3D  [Avatar]" : "SPECTRUM 3D  [Chakra]";
}

void drawSpectrumPanel(const DrawContext& context, const PanelState& panel, SpectrumState& state,
                       const FrameSnapshot& snapshot, std::int32_t spectrumPalette, float time) {
    if (!panel.open) return;
    fillSpectrumGrid(state.grid, snapshot.notes, spectrumPalette);
    PanelStyle style;
    style.titleColor = kTitleColor;
    drawPanel(context, panel, spectrumTitle(spectrumPalette), style,
              [&](const PanelLayout& layout) { drawSpectrum(context, layout.body, state, time); });
}

}  // namespace veloria
