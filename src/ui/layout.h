// Where everything of the main window stands. The frame draws by these rectangles and the input tests them.
#pragma once

#include <SDL.h>

#include <array>
#include <cstdint>

#include "toolkit/grid.h"
#include "toolkit/rect.h"

namespace veloria {

inline constexpr int kTopBarHeight = 32;
inline constexpr int kStatusBarHeight = 30;
inline constexpr int kTabTop = 32;  // first row of the left panel's tabs
inline constexpr int kTabHeight = 28;
inline constexpr int kTabBottom = kTabTop + kTabHeight;  // the left panel's content is seen from here down
inline constexpr int kTabCount = 6;
inline constexpr int kMinimumCentre = 60;  // a centre view no wider or higher than this is not drawn
inline constexpr int kMinimumPanel = 10;   // nor a side panel no wider than this
inline constexpr int kScrollBarWidth = 4;  // at a side panel's right edge
inline constexpr int kMinimumTuning = 60;  // a left panel no wider than this has no "TUNING" controls

inline constexpr int kMinimumRecorder = 150;
inline constexpr int kRoomAboveRecorder = 200;  // rows that it leaves to the rest, the status bar's with them

// What the splitters change; everything else follows from these and the window's size. A resized window
// changes none of them: it shows what fits of them, and shows them whole again once it is large enough.
struct PanelSizes {
    bool layoutReady = false;
    int leftWidth = 0;  // pixels
    int rightX = 0;     // left edge of the right panel
    int recorderHeight = 340;
};

// The sizes are the shown ones: no drawing and no hit test reads the stored ones.
struct WindowLayout {
    int windowW = 0;
    int windowH = 0;
    int leftWidth = 0;
    int rightX = 0;
    int contentBottom = 0;  // first row of the recorder
    int leftScroll = 0;     // pixels by which the shown tab of the left panel is scrolled
    SDL_Rect topBar{};
    SDL_Rect leftPanel{};
    SDL_Rect centre{};  // the main view
    SDL_Rect rightPanel{};
    SDL_Rect recorder{};
    SDL_Rect statusBar{};
};

// Sets the sizes on the first frame with a positive width, once.
void initPanelSizes(PanelSizes& sizes, int windowW);

// The sizes as a window of this size shows them: the recorder leaves 200 rows to the rest, the right panel is
// at least 200 wide and the space between the side panels 120. Only the recorder's 150 rows and an edge of
// the window come before that.
[[nodiscard]] PanelSizes shownSizes(const PanelSizes& stored, int windowW, int windowH);

// Of the stored sizes, unscrolled.
[[nodiscard]] WindowLayout windowLayout(const PanelSizes& stored, int windowW, int windowH);

[[nodiscard]] bool leftPanelShown(const WindowLayout& layout);
// The left panel without what the recorder covers; empty where that is all of it.
[[nodiscard]] SDL_Rect leftPanelClip(const WindowLayout& layout);
// Its part below the tabs, where the content is seen and takes presses.
[[nodiscard]] SDL_Rect leftPanelView(const WindowLayout& layout);
// Where a row of the left panel's content stands that is at `y` when nothing is scrolled.
[[nodiscard]] constexpr int leftPanelY(const WindowLayout& layout, int y) {
    return y - layout.leftScroll;
}
[[nodiscard]] bool rightPanelShown(const WindowLayout& layout);
[[nodiscard]] bool centreShown(const WindowLayout& layout);

// Top bar: the four buttons in their order, and where the file's name begins.
enum TopBarButton : int { kLoadButton, kStopButton, kPlayButton, kResetButton, kTopBarButtonCount };
[[nodiscard]] SDL_Rect topBarButtonRect(const WindowLayout& layout, int button);
[[nodiscard]] SDL_Point fileNamePlace(const WindowLayout& layout);

// Tab `tab` of the left panel; the last takes what is left of the width.
[[nodiscard]] SDL_Rect leftTabRect(const WindowLayout& layout, int tab);
// The tab at a point; -1 for none. The rounding remainder of the last tab belongs to none.
[[nodiscard]] int leftTabAt(const WindowLayout& layout, int x, int y);

// The two sub-tabs of "VOICES" as drawn, and the one at a point; -1 for none. They scroll with their tab.
[[nodiscard]] SDL_Rect voicesSubTabRect(const WindowLayout& layout, int subTab);
[[nodiscard]] int voicesSubTabAt(const WindowLayout& layout, int x, int y);

// The right panel's two tabs and two sub-tabs as drawn, and the one at a point; -1 for none.
[[nodiscard]] SDL_Rect tableTabRect(const WindowLayout& layout, int tab);
[[nodiscard]] int tableTabAt(const WindowLayout& layout, int x, int y);
[[nodiscard]] SDL_Rect avatarSubTabRect(const WindowLayout& layout, int subTab);
[[nodiscard]] int avatarSubTabAt(const WindowLayout& layout, int x, int y);

// Buttons of the left panel: each label's place by the panel's width. Empty for a label that has none, or
// where the panel is too narrow for it.
[[nodiscard]] SDL_Rect leftButtonRect(const WindowLayout& layout, const char* label);

// The table rows.
inline constexpr int kAvatarRowsTop = 84;
inline constexpr int kShadowRowsTop = 62;
inline constexpr int kAvatarRightClickTop = 88;  // four pixels below the rows as drawn: odd, and kept
[[nodiscard]] GridLayout rowGrid(const WindowLayout& layout, int top, int scroll);
// Where rows may be seen: from `top` down to the recorder.
[[nodiscard]] SDL_Rect rowClip(const WindowLayout& layout, int top);
// Where rows take clicks.
[[nodiscard]] SDL_Rect rowHitArea(const WindowLayout& layout);
// How far a list of `rows` rows can be scrolled, pixels.
[[nodiscard]] int maxRowScroll(const WindowLayout& layout, int rows);

// The "TUNING" tab's selector and sliders: where their tracks stand. All empty where the panel is too narrow.
struct TuningLayout {
    SDL_Rect selector{};
    SDL_Rect strength{};
    SDL_Rect speed{};
    SDL_Rect gainLeft{};
    SDL_Rect gainRight{};
};
inline constexpr int kGainReachBelow = 15;  // rows below a gain's first that take presses, the last inside
[[nodiscard]] TuningLayout tuningLayout(const WindowLayout& layout);
// The width that the "TUNING" tab's sliders go by, and that of its buttons. Two numbers on purpose.
[[nodiscard]] int tuningSliderWidth(const WindowLayout& layout);
[[nodiscard]] int leftButtonWidth(const WindowLayout& layout);
// Where a line of `width` pixels beside the gain sliders begins: behind their figures, or as far right as it
// ends clear of the scroll bar. A panel too narrow for that has it at its left, under the sliders.
[[nodiscard]] int lineBehindGainsX(const WindowLayout& layout, int width);

// The sliders of the "FX" tab, in their order.
enum FxSlider : int {
    kFxFibonacci,
    kFxPi,
    kFxTesla,
    kFxOctave,
    kFxPhi,
    kFxFibPhase,
    kFxTeslaPhase,
    kFxVolume,
    kFxSliderCount
};

struct FxRow {
    int captionY;
    int sliderY;
    int lineY;  // of the formula under it; 0 for none
    int low;    // range of the value; volume goes from 0 to 1 and has 0, 0 here
    int high;
    int hitTop;  // rows that take clicks, both inside
    int hitBottom;
};
inline constexpr std::array<FxRow, kFxSliderCount> kFxRows = {{
    {92, 112, 128, 0, 14, 104, 130},
    {158, 178, 194, 0, 14, 170, 196},
    {224, 244, 260, 0, 3, 236, 262},
    {290, 310, 326, -3, 3, 302, 328},
    {356, 376, 392, -3, 3, 368, 394},
    {442, 458, 474, 0, 100, 450, 476},
    {504, 524, 540, 0, 100, 516, 542},
    {566, 582, 0, 0, 0, 574, 600},
}};
inline constexpr int kFxSliderX = 15;
inline constexpr int kFxSliderWidth = 206;
inline constexpr int kFxSliderHeight = 10;
[[nodiscard]] SDL_Rect fxSliderRect(const WindowLayout& layout, int slider);
// The slider whose hit band holds the point; -1 for none, and where the band is scrolled out of the panel.
[[nodiscard]] int fxSliderAt(const WindowLayout& layout, int x, int y);

// Splitters: the bands that take a press.
enum class Splitter { None, Recorder, Left, Right };
[[nodiscard]] Splitter splitterAt(const WindowLayout& layout, int x, int y);

}  // namespace veloria
