// The main window's own panels: bars, tabs, buttons, rows. Each draws by the rectangles of app.layout, from
// app.snapshot and the settings, in the context app.draw; all but drawTuningTab leave the state as it is. A
// part of a side panel that is too narrow to be shown draws nothing. No clip is left behind. Main thread.
#pragma once

#include "base/rgba.h"
#include "ui/app_state.h"
#include "walker/status.h"

namespace veloria {

inline constexpr int kLabelHeight = 14;  // pixels that a line of fontLabel may need

// The bar behind the buttons, and the line at its foot.
void drawTopBar(const AppState& app);

// The four buttons of the top bar, and the name of the loaded file behind them.
void drawTopBarButtons(const AppState& app);

// The left panel's ground with its right edge, and the six tabs.
void drawLeftPanelFrame(const AppState& app);

// "TUNING" but for its buttons: retuner, walker and gains. Writes the places of the selector and of the four
// sliders to app.hits.
void drawTuningTab(AppState& app);

// The foot of "TUNING": what the retuner does at the moment. Nothing while it is off.
void drawRetunerStatus(const AppState& app);
// How far down that reaches unscrolled, y in pixels; 0 while the retuner is off. The other ends alike.
[[nodiscard]] int retunerStatusEnd(std::int32_t mode);

// "FX": two boxes with sliders, and the volume.
void drawFxTab(const AppState& app);

// "VOICES": its sub-tabs and the shown one's content.
void drawVoicesTab(const AppState& app);
[[nodiscard]] int voicesTabEnd(const AppState& app);

// "FREQUENCY" of "VOICES": the table of sounding voices, the pairs that beat, and the activation below.
void drawFrequencyTable(const AppState& app);
[[nodiscard]] int frequencyTableEnd(const AppState& app);

// "SYS": what this program is.
void drawSysTab(const AppState& app);
[[nodiscard]] int aboutEnd();

// The right panel's ground, its tabs and sub-tabs.
void drawRightPanel(const AppState& app);

// The left panel's buttons of the shown tab, and the rows of the shown table.
void drawWidgets(const AppState& app);

// True for the buttons with a picture: the four waves and the two tunings. They are flat, all others round.
[[nodiscard]] bool hasButtonIcon(const std::string& label);

// The picture of such a button, at the left of its rectangle. Nothing for any other label.
void drawButtonIcon(const DrawContext& context, const std::string& label, const SDL_Rect& rect, bool lit);

// At a side panel's right edge, when there is more than it can show.
void drawLeftScrollBar(const AppState& app);
void drawRowScrollBar(const AppState& app);

void drawStatusBar(const AppState& app);

[[nodiscard]] constexpr SDL_Color toColor(Rgba colour) {
    return {colour.r, colour.g, colour.b, colour.a};
}

// The colour of a binaural beat (Hz) by its band, each bound in the lower band.
[[nodiscard]] inline SDL_Color SelectBandColor(float beatHz) {
    return toColor(bandColour(beatHz));
}

}  // namespace veloria
