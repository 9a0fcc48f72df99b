#include <algorithm>
#include <cmath>
#include <string>

#include "base/fixed_text.h"
#include "base/format.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "ui/draw.h"

namespace veloria {

namespace {

constexpr int kTop = 476;
constexpr int kModeY = 481;
constexpr int kFigureY = 497;
constexpr int kSecondY = 517;
constexpr int kThirdY = 533;
constexpr int kPeaksTop = 547;
constexpr int kPeakPitch = 13;
constexpr int kTextX = 8;
constexpr SDL_Color kFigureColor{255, 220, 100, 255};
constexpr SDL_Color kSecondColor{160, 200, 220, 180};

int row(const AppState& app, int y) {
    return leftPanelY(app.layout, y);
}

// "+2.0", "-6.1".
std::string signedText(double value, int precision) {
    return (std::signbit(value) ? "" : "+") + fixedText(value, precision);
}

const char* modeWord(std::int32_t mode) {
    if (mode == kModeFull) return "FULL";
    return mode == kModePeak ? "PEAK" : "SOLFEGGIO";
}

double targetHz(std::int32_t index) {
    const auto last = static_cast<std::int32_t>(sacredTargets.size()) - 1;
    return sacredTargets[static_cast<std::size_t>(std::clamp(index, 0, last))];
}

void drawSolfeggioFigures(const AppState& app) {
    const RetunerReport& retuner = app.snapshot.retuner;
    const double cents = std::log2(retuner.solfeggioRatio) * 1200.0;
    DrawText(app.draw, formatText("%d Hz", static_cast<int>(targetHz(retuner.targetIndex))), kTextX,
             row(app, kFigureY), app.fonts.fontHeading, kFigureColor);
    DrawText(app.draw, signedText(cents, 1) + " cents (time-domain)", kTextX, row(app, kSecondY),
             app.fonts.fontLabel, kSecondColor);
    DrawText(app.draw, formatText("Blend: %d%%", retuner.strength), kTextX, row(app, kThirdY),
             app.fonts.fontLabel, {140, 180, 200, 160});
}

SDL_Color peakColor(const PeakEntry& peak) {
    if (peak.targetHz > peak.sourceHz + 0.5f) return {100, 220, 180, 200};
    if (peak.sourceHz - 0.5f > peak.targetHz) return {220, 160, 100, 200};
    return {180, 180, 180, 160};
}

void drawPeaks(const AppState& app) {
    const RetunerReport& retuner = app.snapshot.retuner;
    if (retuner.peakCount <= 0) return;
    DrawText(app.draw, "Top Peaks:", kTextX, row(app, kThirdY), app.fonts.fontLabel, {140, 160, 180, 160});
    const int count = std::min(static_cast<int>(kPeakRows), retuner.peakCount);
    for (int i = 0; i < count; ++i) {
        const PeakEntry& peak = retuner.peaks[static_cast<std::size_t>(i)];
        const std::string text =
            formatText("%.0f -> %.0f Hz  (%.0f%%)", static_cast<double>(peak.sourceHz),
                       static_cast<double>(peak.targetHz), static_cast<double>(peak.level) * 100.0);
        DrawText(app.draw, text, 12, row(app, kPeaksTop + i * kPeakPitch), app.fonts.fontLabel,
                 peakColor(peak));
    }
}

void drawSpectralFigures(const AppState& app) {
    const RetunerReport& retuner = app.snapshot.retuner;
    const double shift = static_cast<double>(retuner.avgShiftHz);
    DrawText(app.draw, "Avg Shift: " + fixedText(shift, 1) + " Hz", kTextX, row(app, kFigureY),
             app.fonts.fontHeading, kFigureColor);
    DrawText(app.draw, formatText("Bins shifted: %d", retuner.binsShifted), kTextX, row(app, kSecondY),
             app.fonts.fontLabel, kSecondColor);
    drawPeaks(app);
}

}  // namespace

int retunerStatusEnd(std::int32_t mode) {
    if (mode == kModeOff) return 0;
    if (mode == kModeSolfeggio) return kThirdY + kLabelHeight;
    // All rows whether or not there are peaks: else a scrolled panel would jump with each rest in the music.
    return kPeaksTop + static_cast<int>(kPeakRows) * kPeakPitch;
}

void drawRetunerStatus(const AppState& app) {
    const std::int32_t mode = app.snapshot.retuner.mode;
    if (mode == kModeOff) return;
    hLine(app.renderer, 5, app.layout.leftWidth - 5, row(app, kTop), {60, 160, 200, 100});
    DrawText(app.draw, formatText("SACRED FFT: %s", modeWord(mode)), kTextX, row(app, kModeY),
             app.fonts.fontLabel, {80, 200, 255, 230});
    if (mode == kModeSolfeggio) {
        drawSolfeggioFigures(app);
    } else {
        drawSpectralFigures(app);
    }
}

}  // namespace veloria
