#include <algorithm>
#include <array>
#include <string>

#include "base/format.h"
#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "toolkit/widgets.h"
#include "ui/draw.h"

namespace veloria {

namespace {

constexpr int kCaptionAlpha = 230;
constexpr int kFormulaAlpha = 160;
constexpr int kBoxAlpha = 230;
constexpr int kBoxOutlineAlpha = 160;
constexpr int kZeroLineAlpha = 120;
constexpr int kBipolarFillAlpha = 110;
constexpr int kVolumeFillAlpha = 220;
constexpr int kBoxWidest = 240;

// The names of the steps of a bipolar slider, joined from the first to its value.
using StepNames = std::array<const char*, 3>;
constexpr StepNames kOctaveSteps = {"2", ",4", ",8"};
constexpr StepNames kPhiSteps = {"phi", ",phi2", ",phi3"};

struct FxLook {
    const char* name;  // of the caption
    const char* unit;  // behind the caption's value
    bool offAtZero;    // the caption says "OFF" for 0
    SDL_Color fill;
    SDL_Color knob;
    const char* formula;     // the line under the slider
    const StepNames* steps;  // of a bipolar slider, whose line names them unless it stands at 0
};

constexpr SDL_Color kOctaveColor{140, 190, 255, 255};
constexpr SDL_Color kPhiColor{255, 180, 120, 255};
// clang-format off
constexpr std::array<FxLook, kFxVolume> kFxLooks = {{
    {"FIBONACCI: ", "/14", false, {185, 140, 30, 255}, {255, 200, 60, 255}, "f*{2..89,144..987}", nullptr},
    {"PI DIGITS: ", "/14", false, {50, 130, 255, 255}, {100, 200, 255, 255}, "f*{pi digits 2..15}", nullptr},
    {"TESLA 3-6-9: ", "/3", true, {30, 200, 120, 255}, {80, 255, 180, 255}, "f*{3,6,9}", nullptr},
    {"OCTAVE x2: ", "", true, kOctaveColor, kOctaveColor, "f * 2^n  (x2 x4 x8 / /2 /4 /8)", &kOctaveSteps},
    {"OCTAVE PHI: ", "", true, kPhiColor, kPhiColor, "f * phi^n  (phi phi2 phi3)", &kPhiSteps},
    {"FIB PHASE: ", "%", true, {150, 90, 220, 255}, {210, 160, 255, 255}, "h*2pi/phi2 (phyllotaxis)", nullptr},
    {"TESLA PHASE: ", "%", true, {40, 190, 160, 255}, {120, 255, 220, 255}, "3>120  6>240  9>360", nullptr},
}};
// clang-format on
constexpr SDL_Color kVolumeFill{200, 180, 80, 255};
constexpr SDL_Color kVolumeKnob{255, 230, 120, 255};

int valueOf(const SynthEngine& engine, int slider) {
    switch (slider) {
        case kFxFibonacci:
            return engine.fibonacciCount;
        case kFxPi:
            return engine.piCount;
        case kFxTesla:
            return engine.teslaCount;
        case kFxOctave:
            return engine.octaveSteps;
        case kFxPhi:
            return engine.phiSteps;
        case kFxFibPhase:
            return engine.fibPhase;
        case kFxTeslaPhase:
            return engine.teslaPhase;
        default:
            return 0;
    }
}

std::string captionOf(const FxLook& look, int value) {
    if (value == 0 && look.offAtZero) return std::string(look.name) + "OFF";
    const char* sign = look.steps != nullptr && value > 0 ? "+" : "";
    return look.name + (sign + std::to_string(value)) + look.unit;
}

std::string formulaOf(const FxLook& look, int value) {
    if (look.steps == nullptr || value == 0) return look.formula;
    std::string text = value > 0 ? "f*{" : "f/{";
    for (int step = 0; step < std::min(std::abs(value), 3); ++step)
        text += (*look.steps)[static_cast<std::size_t>(step)];
    return text + "}";
}

// A slider with its zero in the middle: the fill joins that with the knob.
void drawBipolarSlider(const AppState& app, const SDL_Rect& rect, int value, SDL_Color color) {
    const int middle = rect.x + rect.w / 2;
    const int knob = middle + std::clamp(value, -3, 3) * rect.w / 6;
    fillRect(app.renderer, rect, app.theme.themeTrack);
    fillRect(app.renderer, {std::min(middle, knob), rect.y, std::abs(knob - middle), rect.h},
             withAlpha(color, kBipolarFillAlpha));
    vLine(app.renderer, middle, rect.y - 2, rect.y + rect.h + 1,
          withAlpha(app.theme.themeTextDim, kZeroLineAlpha));
    DrawKnob(app.draw, knob, rect.y + rect.h / 2, color);
}

void drawFxRow(const AppState& app, int slider) {
    const FxLook& look = kFxLooks[static_cast<std::size_t>(slider)];
    const FxRow& row = kFxRows[static_cast<std::size_t>(slider)];
    const int value = valueOf(*app.engine, slider);
    DrawText(app.draw, captionOf(look, value), kFxSliderX, leftPanelY(app.layout, row.captionY),
             app.fonts.fontLabel, withAlpha(look.knob, kCaptionAlpha));
    if (row.low < 0) {
        drawBipolarSlider(app, fxSliderRect(app.layout, slider), value, look.knob);
    } else {
        DrawSlider(app.draw, fxSliderRect(app.layout, slider), static_cast<float>(value),
                   static_cast<float>(row.high), look.fill, look.knob);
    }
    DrawText(app.draw, formulaOf(look, value), kFxSliderX, leftPanelY(app.layout, row.lineY),
             app.fonts.fontLabel, withAlpha(app.theme.themeTextDim, kFormulaAlpha));
}

void drawVolume(const AppState& app) {
    const float gain = app.gains->masterGain;
    DrawText(app.draw, formatText("VOLUME: %d%%", static_cast<int>(gain * 100.0f + 0.5f)), kFxSliderX,
             leftPanelY(app.layout, kFxRows[kFxVolume].captionY), app.fonts.fontLabel,
             withAlpha(kVolumeKnob, kCaptionAlpha));
    DrawSlider(app.draw, fxSliderRect(app.layout, kFxVolume), gain, 1.0f, kVolumeFill, kVolumeKnob,
               kVolumeFillAlpha);
}

void drawBox(const AppState& app, int y, int h, const char* heading, SDL_Color color) {
    const SDL_Rect box{4, leftPanelY(app.layout, y), std::min(app.layout.leftWidth - 10, kBoxWidest), h};
    fillRect(app.renderer, box, withAlpha(app.theme.themeBox, kBoxAlpha));
    outlineRect(app.renderer, box, withAlpha(app.theme.themeBorder, kBoxOutlineAlpha));
    DrawText(app.draw, heading, kFxSliderX, box.y + 4, app.fonts.fontTab, color);
}

}  // namespace

void drawFxTab(const AppState& app) {
    if (!leftPanelShown(app.layout)) return;
    const ClipGuard clip(app.renderer, leftPanelView(app.layout));
    drawBox(app, 66, 340, "HARMONICS", {220, 185, 90, 255});
    drawBox(app, 416, 142, "PHASE", {180, 120, 220, 255});
    for (int slider = 0; slider < kFxVolume; ++slider)
        drawFxRow(app, slider);
    drawVolume(app);
}

}  // namespace veloria
