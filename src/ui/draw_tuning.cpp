#include <algorithm>
#include <array>
#include <string>

#include "base/format.h"
#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "ui/draw.h"
#include "walker/status.h"

namespace veloria {

namespace {

constexpr int kKnobAlpha = 240;
constexpr int kKnobWidth = 8;
constexpr int kKnobHeight = 12;
constexpr int kTextX = 8;

// The targets as the selector names them: some carry their old syllable.
constexpr std::array<const char*, sacredTargets.size()> kTargetLabels = {
    "147", "174",    "258",    "285",     "369",    "396 UT", "417 RE",
    "432", "528 MI", "639 FA", "741 SOL", "852 LA", "963 SI"};

const char* targetLabel(std::int32_t index) {
    const auto last = static_cast<std::int32_t>(kTargetLabels.size()) - 1;
    return kTargetLabels[static_cast<std::size_t>(std::clamp(index, 0, last))];
}

// A flat slider: track, fill and a knob that stands three rows above and below it.
void drawFlatSlider(const AppState& app, const SDL_Rect& track, int fill, SDL_Color fillColor) {
    fillRect(app.renderer, track, app.theme.themeTrack);
    fillRect(app.renderer, {track.x, track.y, fill, track.h}, fillColor);
    fillRect(app.renderer, {track.x + fill - kKnobWidth / 2, track.y - 3, kKnobWidth, kKnobHeight},
             withAlpha(app.theme.themeKnob, kKnobAlpha));
}

void drawSelector(AppState& app, const SDL_Rect& box) {
    const RetunerReport& retuner = app.snapshot.retuner;
    const bool chosen = retuner.mode == kModeSolfeggio;
    TTF_Font* font = app.fonts.fontLabel;
    fillRect(app.renderer, box, chosen ? SDL_Color{50, 140, 180, 220} : SDL_Color{50, 50, 60, 200});
    outlineRect(app.renderer, box, withAlpha({80, 180, 220, 255}, chosen ? 200 : 80));
    const SDL_Color arrow = withAlpha({200, 220, 255, 255}, chosen ? 255 : 160);
    DrawText(app.draw, "<", box.x + 3, box.y + 5, font, arrow);
    DrawText(app.draw, ">", box.x + box.w - 14, box.y + 5, font, arrow);
    DrawTextCentered(app.draw, formatText("%s Hz", targetLabel(retuner.targetIndex)), box, font,
                     chosen ? SDL_Color{255, 240, 200, 255} : SDL_Color{180, 200, 220, 200});
    app.hits.selectorHit = box;
}

void drawStrength(AppState& app, const SDL_Rect& track) {
    const RetunerReport& retuner = app.snapshot.retuner;
    const bool off = retuner.mode == kModeOff;
    DrawText(app.draw, formatText("STRENGTH: %d%%", retuner.strength), kTextX, leftPanelY(app.layout, 214),
             app.fonts.fontLabel, off ? SDL_Color{120, 120, 140, 120} : SDL_Color{180, 200, 255, 220});
    drawFlatSlider(app, track, std::clamp(retuner.strength, 0, 100) * track.w / 100,
                   off ? SDL_Color{80, 80, 100, 120} : SDL_Color{60, 160, 200, 220});
    app.hits.strengthHit = track;
}

void drawSpeed(AppState& app, const SDL_Rect& track) {
    DrawText(app.draw, walkerSpeedText(app.walker), kTextX, leftPanelY(app.layout, 378), app.fonts.fontLabel,
             {160, 120, 220, 200});
    const int above = std::clamp(app.walker.stepMs, kMinStepMs, kMaxStepMs) - kMinStepMs;
    drawFlatSlider(app, track, above * track.w / (kMaxStepMs - kMinStepMs), {120, 60, 200, 200});
    app.hits.speedHit = track;
}

void drawStatusLine(const AppState& app, const StatusLine& line, int x, int y) {
    if (line.text.empty()) return;
    DrawTextUtf8(app.draw, line.text, x, leftPanelY(app.layout, y), app.fonts.fontLabel,
                 toColor(line.colour));
}

// Beside the gains, which it shares its rows with.
void drawLineBehindGains(const AppState& app, const StatusLine& line, int y) {
    const int width = measureTextUtf8(app.fonts.fontLabel, line.text).x;
    drawStatusLine(app, line, lineBehindGainsX(app.layout, width), y);
}

void drawWalkerStatus(const AppState& app) {
    const ScaleWalker& walker = app.walker;
    if (!walker.running) return;
    for (const Rgba& flash : walkerFlashes(walker, app.draw.ticks)) {
        if (flash.a == 0) continue;
        fillRect(app.renderer, {0, leftPanelY(app.layout, 402), app.layout.leftWidth, 48}, toColor(flash));
    }
    const std::int32_t mode = app.engine->activationMode;
    drawStatusLine(app, walkerLine(walker, mode, walkerStepCount(kFrequencyCount)), kTextX, 404);
    drawStatusLine(app, digitalRootLine(walker), kTextX, 418);
    drawLineBehindGains(app, binauralLine(walker), 432);
    drawLineBehindGains(app, modeLine(mode), 444);
}

struct GainLook {
    const char* caption;
    SDL_Color color;  // of the caption; of the figure at its own alpha
    SDL_Color fill;
};
constexpr GainLook kLeftGain{"L", {255, 180, 80, 220}, {200, 140, 40, 220}};
constexpr GainLook kRightGain{"R", {80, 200, 255, 220}, {40, 140, 200, 220}};
constexpr int kGainFigureAlpha = 180;

void drawGain(const AppState& app, const GainLook& look, const SDL_Rect& track, float gain) {
    const int y = track.y - 6;
    DrawText(app.draw, look.caption, kTextX, y, app.fonts.fontLabel, look.color);
    const float held = std::clamp(gain, 0.0f, 1.0f);
    drawFlatSlider(app, track, static_cast<int>(held * static_cast<float>(track.w)), look.fill);
    DrawText(app.draw, formatText("%.0f%%", static_cast<double>(gain) * 100.0), track.x + track.w + 4, y,
             app.fonts.fontLabel, withAlpha(look.color, kGainFigureAlpha));
}

}  // namespace

void drawTuningTab(AppState& app) {
    if (app.layout.leftWidth <= kMinimumTuning) return;
    const ClipGuard clip(app.renderer, leftPanelView(app.layout));
    const TuningLayout tuning = tuningLayout(app.layout);
    DrawText(app.draw, "SACRED FFT (WAV)", kTextX, leftPanelY(app.layout, 136), app.fonts.fontLabel,
             {100, 180, 220, 180});
    drawSelector(app, tuning.selector);
    drawStrength(app, tuning.strength);
    drawSpeed(app, tuning.speed);
    drawWalkerStatus(app);
    drawGain(app, kLeftGain, tuning.gainLeft, app.gains->synthGainLeft);
    drawGain(app, kRightGain, tuning.gainRight, app.gains->synthGainRight);
    app.hits.synthGainHitLeft = tuning.gainLeft;
    app.hits.synthGainHitRight = tuning.gainRight;
    drawRetunerStatus(app);
}

}  // namespace veloria
