// The control panel's widgets: what there is, what each does and when it is lit.
#pragma once

#include <SDL.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "ui/layout.h"

namespace veloria {

struct AppState;

inline constexpr std::int32_t kTopBarGroup = -2;
inline constexpr std::int32_t kLeftPanelGroup = -1;
inline constexpr std::int32_t kReflectionGroup = 600;  // + index in the source table
inline constexpr std::int32_t kRotationGroup = 700;
inline constexpr std::int32_t kShadowGroup = 800;

// The tabs of the left panel.
enum ViewMode : std::int32_t { kTuningTab, kWaveTab, kFxTab, kVoicesTab, kVizTab, kSysTab };

struct LeftTab {
    const char* caption;
    SDL_Color underline;
};
extern const LeftTab kLeftTabs[6];

struct Widget {
    SDL_Rect rect{};     // not used by buttons and rows: their places follow from the layout
    std::string label;   // also the widget's identity
    std::string detail;  // second line of a table row, empty on buttons
    SDL_Color color{};
    std::uint8_t flag = 0;
    std::int32_t group = 0;
    std::function<void()> onClick;  // empty on "LOAD MUSIC FILE", which the click handler knows by name
};

// Fills app.widgets: the top bar, the buttons of the left panel, then the rows of the three tables, each
// family ascending by frequency. Runs once, before the transport's function objects exist: each action looks
// its object up when it is clicked.
void buildWidgetLists(AppState& app);

// The first widget with this label; null for none.
[[nodiscard]] const Widget* findWidget(const AppState& app, const std::string& label);

// The tab a left-panel button belongs to; -1 for none.
[[nodiscard]] std::int32_t tabOfButton(const std::string& label);

// True for a button whose function is on, and for a row whose note is held.
[[nodiscard]] bool isLit(const AppState& app, const Widget& widget);

// A row of the Shadow table that is an Avatar number: drawn dim, and inert.
[[nodiscard]] bool isInertRow(const Widget& widget);

// The family that the right panel shows: where its rows stand and how they are numbered.
struct ShownRows {
    std::int32_t group;  // of its first row
    int count;
    int top;  // pixels; where its first line stands unscrolled
    GridLayout grid;
};
// `avatarTop` is where the Avatar families begin for this caller: kAvatarRowsTop but for right presses.
[[nodiscard]] ShownRows shownRows(const AppState& app, int avatarTop = kAvatarRowsTop);

// True for a row of the family that the right panel shows now.
[[nodiscard]] bool isShownRow(const AppState& app, const Widget& widget);

}  // namespace veloria
