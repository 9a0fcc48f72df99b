#include "ui/layout.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace veloria {

namespace {

constexpr int kFirstSideWidth = 400;
constexpr int kSplitterReach = 4;
constexpr int kNarrowestRight = 200;
constexpr int kNarrowestCentre = 120;

// How a button's place follows from the width W of the left panel's buttons.
enum class Span { Full, Third1, Third2, Third3, Half1, Half2, BesideNormalize };

struct ButtonPlace {
    std::string_view label;
    Span span;
    int y;
    int h;
};

constexpr ButtonPlace kButtonPlaces[] = {
    {"Original Midi", Span::Full, 68, 28},
    {"Sacred Optimizer", Span::Full, 102, 28},
    {"FFT Off", Span::Third1, 150, 28},
    {"FFT Full", Span::Half1, 180, 28},
    {"FFT Peak", Span::Half2, 180, 28},
    {"Bass Filter", Span::Full, 242, 28},
    {"MIDI Normalize", Span::Full, 274, 28},
    {"Heart", Span::Third1, 312, 28},
    {"Trinity", Span::Third2, 312, 28},
    {"Fibonacci", Span::Third3, 312, 28},
    {"DNA Spiral", Span::Full, 346, 28},
    {"Import MIDI", Span::BesideNormalize, 274, 28},
    {"Sine", Span::Full, 68, 32},
    {"Saw", Span::Full, 104, 32},
    {"Square", Span::Full, 140, 32},
    {"Triangle", Span::Full, 176, 32},
    {"SPEC 1", Span::Full, 68, 28},
    {"SPEC 2", Span::Full, 100, 28},
    {"SACRED", Span::Full, 132, 28},
    {"HARMONICS", Span::Full, 164, 28},
    {"KATHARA", Span::Full, 196, 28},
    {"LOTUS", Span::Full, 228, 28},
    {"POLAR", Span::Full, 260, 28},
    {"SCOPE", Span::Full, 292, 28},
    {"KATHARA PANEL", Span::Full, 324, 28},
    {"SHADOW", Span::Full, 356, 28},
};

constexpr int kImportMinimumWidth = 60;

SDL_Rect spanRect(Span span, int w, int leftWidth) {
    const int third = (w - 8) / 3;
    const int half = (w - 4) / 2;
    switch (span) {
        case Span::Full:
            return {5, 0, w, 0};
        case Span::Third1:
            return {5, 0, third, 0};
        case Span::Third2:
            return {third + 9, 0, third, 0};
        case Span::Third3:
            return {2 * third + 13, 0, third, 0};
        case Span::Half1:
            return {5, 0, half, 0};
        case Span::Half2:
            return {half + 9, 0, half, 0};
        case Span::BesideNormalize: {
            const int room = std::min(140, leftWidth - w - 15);
            return {w + 10, 0, room >= kImportMinimumWidth ? room : 0, 0};
        }
    }
    return {};
}

}  // namespace

void initPanelSizes(PanelSizes& sizes, int windowW) {
    if (sizes.layoutReady || windowW <= 0) return;
    sizes.leftWidth = kFirstSideWidth;
    sizes.rightX = windowW - kFirstSideWidth;
    sizes.layoutReady = true;
}

PanelSizes shownSizes(const PanelSizes& stored, int windowW, int windowH) {
    PanelSizes shown = stored;
    shown.recorderHeight =
        std::min(stored.recorderHeight, std::max(kMinimumRecorder, windowH - kRoomAboveRecorder));
    const int widestLeft = std::max(windowW - kNarrowestCentre - kNarrowestRight, 0);
    shown.leftWidth = std::min(stored.leftWidth, widestLeft);
    shown.rightX =
        std::max(std::min(stored.rightX, windowW - kNarrowestRight), shown.leftWidth + kNarrowestCentre);
    return shown;
}

WindowLayout windowLayout(const PanelSizes& stored, int windowW, int windowH) {
    const PanelSizes sizes = shownSizes(stored, windowW, windowH);
    WindowLayout layout;
    layout.windowW = windowW;
    layout.windowH = windowH;
    layout.leftWidth = sizes.leftWidth;
    layout.rightX = sizes.rightX;
    layout.contentBottom = windowH - kStatusBarHeight - sizes.recorderHeight;
    const int contentHeight = layout.contentBottom - kTopBarHeight;
    layout.topBar = {0, 0, windowW, kTopBarHeight};
    layout.leftPanel = {0, kTopBarHeight, layout.leftWidth, contentHeight};
    layout.centre = {layout.leftWidth + 1, kTopBarHeight, layout.rightX - layout.leftWidth - 2,
                     contentHeight};
    layout.rightPanel = {layout.rightX, kTopBarHeight, windowW - layout.rightX, contentHeight};
    layout.recorder = {0, layout.contentBottom, windowW, sizes.recorderHeight};
    layout.statusBar = {0, windowH - kStatusBarHeight, windowW, kStatusBarHeight};
    return layout;
}

bool leftPanelShown(const WindowLayout& layout) {
    return layout.leftWidth > kMinimumPanel;
}
SDL_Rect leftPanelClip(const WindowLayout& layout) {
    const SDL_Rect& panel = layout.leftPanel;
    return {panel.x, panel.y, panel.w, std::max(panel.h, 0)};
}
SDL_Rect leftPanelView(const WindowLayout& layout) {
    const int top = kTabBottom + (layout.leftScroll > 0 ? 1 : 0);  // under the line that closes the tabs
    return {0, top, layout.leftWidth, std::max(layout.contentBottom - top, 0)};
}
bool rightPanelShown(const WindowLayout& layout) {
    return layout.rightPanel.w > kMinimumPanel;
}
bool centreShown(const WindowLayout& layout) {
    return layout.centre.w > kMinimumCentre && layout.centre.h > kMinimumCentre;
}

SDL_Rect topBarButtonRect(const WindowLayout& layout, int button) {
    // 276 although the buttons reach to 280: the row has always stood two pixels right of the middle.
    const int x0 = (layout.windowW - 276) / 2;
    if (button == kLoadButton) return {x0, 4, 160, 24};
    return {x0 + 164 + 40 * (button - kStopButton), 4, 36, 24};
}

SDL_Point fileNamePlace(const WindowLayout& layout) {
    return {(layout.windowW - 276) / 2 + 290, 11};
}

SDL_Rect leftTabRect(const WindowLayout& layout, int tab) {
    const int width = layout.leftWidth / kTabCount;
    const int own = tab == kTabCount - 1 ? layout.leftWidth - width * tab : width;
    return {width * tab, kTabTop, own, kTabHeight};
}

int leftTabAt(const WindowLayout& layout, int x, int y) {
    const int width = layout.leftWidth / kTabCount;
    if (width < 1 || !contains({0, kTabTop, layout.leftWidth, kTabHeight}, x, y)) return -1;
    const int tab = x / width;
    return tab < kTabCount ? tab : -1;
}

SDL_Rect voicesSubTabRect(const WindowLayout& layout, int subTab) {
    const int width = layout.leftWidth / 2 - 4;
    return {subTab == 0 ? 3 : layout.leftWidth / 2 + 1, leftPanelY(layout, 59), width, 22};
}

int voicesSubTabAt(const WindowLayout& layout, int x, int y) {
    const int top = leftPanelY(layout, 59);
    // The first row of the sub-tabs lies in the strip of the tabs, which take it before.
    if (x < 3 || x >= layout.leftWidth - 3 || y < std::max(top, kTabBottom - 1) ||
        y >= std::min(top + 22, layout.contentBottom)) {
        return -1;
    }
    return x < layout.leftWidth / 2 - 1 ? 0 : 1;
}

namespace {

// One of two halves of the right panel.
SDL_Rect rightHalf(const WindowLayout& layout, int place, int y, int h) {
    const int half = layout.rightPanel.w / 2;
    return {layout.rightX + place * half, y, place == 0 ? half : layout.rightPanel.w - half, h};
}

int rightHalfAt(const WindowLayout& layout, int x, int y, int top, int bottom) {
    if (x < layout.rightX || x >= layout.windowW || y < top || y > bottom) return -1;
    return x < layout.rightX + layout.rightPanel.w / 2 ? 0 : 1;
}

}  // namespace

SDL_Rect tableTabRect(const WindowLayout& layout, int tab) {
    return rightHalf(layout, tab, 33, 24);
}
int tableTabAt(const WindowLayout& layout, int x, int y) {
    return rightHalfAt(layout, x, y, 32, 57);
}
SDL_Rect avatarSubTabRect(const WindowLayout& layout, int subTab) {
    return rightHalf(layout, subTab, 60, 22);
}
int avatarSubTabAt(const WindowLayout& layout, int x, int y) {
    return rightHalfAt(layout, x, y, 59, 83);
}

int tuningSliderWidth(const WindowLayout& layout) {
    return std::min(layout.leftWidth - 40, 200);
}
int leftButtonWidth(const WindowLayout& layout) {
    return std::min(layout.leftWidth - 10, 230);
}
int lineBehindGainsX(const WindowLayout& layout, int width) {
    constexpr int kLeft = 8;
    constexpr int kLeastRoom = 330;
    if (layout.leftWidth < kLeastRoom) return kLeft;
    const int behind = tuningSliderWidth(layout) + 66;
    return std::max(std::min(behind, layout.leftWidth - kScrollBarWidth - width), kLeft);
}

SDL_Rect leftButtonRect(const WindowLayout& layout, const char* label) {
    const auto place = std::find_if(std::begin(kButtonPlaces), std::end(kButtonPlaces),
                                    [label](const ButtonPlace& p) { return p.label == label; });
    if (place == std::end(kButtonPlaces)) return {};
    SDL_Rect rect = spanRect(place->span, leftButtonWidth(layout), layout.leftWidth);
    rect.y = leftPanelY(layout, place->y);
    rect.h = place->h;
    return rect.w > 0 ? rect : SDL_Rect{};
}

GridLayout rowGrid(const WindowLayout& layout, int top, int scroll) {
    return gridLayout(layout.rightX, layout.rightPanel.w, top, scroll);
}

SDL_Rect rowClip(const WindowLayout& layout, int top) {
    return {layout.rightX, top, layout.rightPanel.w, std::max(layout.contentBottom - top, 0)};
}

SDL_Rect rowHitArea(const WindowLayout& layout) {
    return {layout.rightX + 1, 59, layout.windowW - 4 - layout.rightX, layout.contentBottom - 59};
}

int maxRowScroll(const WindowLayout& layout, int rows) {
    const int lines = gridLines(rowGrid(layout, 0, 0), rows);
    // Measured from 69, not from where the rows begin: the last line can be 12 pixels short. Kept.
    return std::max(lines * kGridPitch - layout.contentBottom + 69, 0);
}

TuningLayout tuningLayout(const WindowLayout& layout) {
    TuningLayout tuning;
    if (layout.leftWidth <= kMinimumTuning) return tuning;
    const int buttons = leftButtonWidth(layout);
    const auto row = [&layout](int y) { return leftPanelY(layout, y); };
    // At full width the box is five pixels wider than the rule gives, so that its edge is flush with the
    // buttons.
    tuning.selector = buttons == 230
                          ? SDL_Rect{83, row(150), 152, 28}
                          : SDL_Rect{(buttons - 8) / 3 + 9, row(150), buttons - (buttons - 8) / 3 - 9, 28};
    const int w = tuningSliderWidth(layout);
    tuning.strength = {8, row(228), w + 14, 6};
    tuning.speed = {8, row(394), w + 14, 6};
    tuning.gainLeft = {22, row(434), w, 6};
    tuning.gainRight = {22, row(456), w, 6};
    return tuning;
}

SDL_Rect fxSliderRect(const WindowLayout& layout, int slider) {
    const int y = kFxRows[static_cast<std::size_t>(slider)].sliderY;
    return {kFxSliderX, leftPanelY(layout, y), kFxSliderWidth, kFxSliderHeight};
}

int fxSliderAt(const WindowLayout& layout, int x, int y) {
    if (!contains(leftPanelView(layout), x, y)) return -1;
    if (x < kFxSliderX - 2 || x > kFxSliderX + kFxSliderWidth + 2) return -1;
    for (int slider = 0; slider < kFxSliderCount; ++slider) {
        const FxRow& row = kFxRows[static_cast<std::size_t>(slider)];
        if (y >= leftPanelY(layout, row.hitTop) && y <= leftPanelY(layout, row.hitBottom)) return slider;
    }
    return -1;
}

Splitter splitterAt(const WindowLayout& layout, int x, int y) {
    if (x >= 0 && x < layout.windowW && std::abs(y - layout.contentBottom) <= kSplitterReach) {
        return Splitter::Recorder;
    }
    if (y < kTopBarHeight || y >= layout.contentBottom) return Splitter::None;
    if (std::abs(x - layout.leftWidth) <= kSplitterReach) return Splitter::Left;
    if (std::abs(x - layout.rightX) <= kSplitterReach) return Splitter::Right;
    return Splitter::None;
}

}  // namespace veloria
