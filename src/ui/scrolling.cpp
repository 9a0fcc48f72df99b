#include "ui/scrolling.h"

#include <algorithm>

#include "ui/draw.h"

namespace veloria {

namespace {

constexpr int kFoot = 10;  // below the last of a tab's content, clear of the recorder's splitter

int buttonsEnd(const AppState& app) {
    int end = 0;
    for (const Widget& widget : app.widgets) {
        if (widget.group != kLeftPanelGroup || tabOfButton(widget.label) != app.viewMode) continue;
        const SDL_Rect rect = leftButtonRect(app.layout, widget.label.c_str());
        end = std::max(end, rect.y + rect.h + app.layout.leftScroll);
    }
    return end;
}

// The end of what "TUNING" has beside its buttons.
int tuningEnd(const AppState& app) {
    const SDL_Rect lowest = tuningLayout(app.layout).gainRight;
    if (isEmpty(lowest)) return 0;
    const int gainsEnd = lowest.y + kGainReachBelow + 1 + app.layout.leftScroll;
    return std::max(gainsEnd, retunerStatusEnd(app.snapshot.retuner.mode));
}

// Where the shown tab's content ends unscrolled, y in pixels.
int contentEnd(const AppState& app) {
    switch (app.viewMode) {
        case kTuningTab:
            return std::max(buttonsEnd(app), tuningEnd(app));
        case kFxTab:
            return kFxRows.back().hitBottom + 1;
        case kVoicesTab:
            return voicesTabEnd(app);
        case kSysTab:
            return aboutEnd();
        default:
            return buttonsEnd(app);
    }
}

std::int32_t held(std::int32_t scroll, int farthest) {
    return std::clamp(scroll, 0, farthest);
}

}  // namespace

int maxLeftScroll(const AppState& app) {
    if (!leftPanelShown(app.layout)) return 0;
    return std::max(contentEnd(app) + kFoot - app.layout.contentBottom, 0);
}

int shownLeftScroll(const AppState& app) {
    return held(app.leftScroll[static_cast<std::size_t>(app.viewMode)], maxLeftScroll(app));
}

void layOutWindow(AppState& app, int windowW, int windowH) {
    app.layout = windowLayout(app.sizes, windowW, windowH);
    app.avatarScroll = held(app.avatarScroll, maxRowScroll(app.layout, kAvatarFamilySize));
    app.shadowScroll = held(app.shadowScroll, maxRowScroll(app.layout, kShadowIndexCount));
    std::int32_t& scroll = app.leftScroll[static_cast<std::size_t>(app.viewMode)];
    scroll = shownLeftScroll(app);
    app.layout.leftScroll = scroll;
}

}  // namespace veloria
