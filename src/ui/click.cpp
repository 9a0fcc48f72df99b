// What a plain left click hits: top bar, tabs, buttons and rows.
#include <algorithm>
#include <string>

#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/path_text.h"
#include "ui/frame.h"
#include "ui/input.h"
#include "ui/scrolling.h"

namespace veloria {

namespace {

constexpr const char* kTopBarLabels[kTopBarButtonCount] = {"LOAD MUSIC FILE", "STOP", "PLAY", "RESET"};

// Asks for a file and loads it.
void loadMusicFile(AppState& app) {
    const std::string path = platform::chooseFileToOpen(kMusicFileDialog);
    app.kathara.sceneDirty = true;
    if (path.empty()) return;
    const std::size_t slash = path.find_last_of("\\/");
    app.transport.fileLabel =
        platform::displayText(slash == std::string::npos ? path : path.substr(slash + 1));
    // The chooser has left its shape on the window, and a load can take long and end in a message.
    renderFrame(app, platform::ticksMs());
    if (app.onLoadFile) app.onLoadFile(path);
}

void clickTopBar(AppState& app, int x, int y) {
    for (int button = 0; button < kTopBarButtonCount; ++button) {
        if (!contains(topBarButtonRect(app.layout, button), x, y)) continue;
        const Widget* widget = findWidget(app, kTopBarLabels[button]);
        if (button == kLoadButton) {
            loadMusicFile(app);
        } else if (widget != nullptr && widget->onClick) {
            widget->onClick();
        }
        return;
    }
}

bool clickTabs(AppState& app, int x, int y) {
    if (const int tab = leftTabAt(app.layout, x, y); tab >= 0) {
        app.viewMode = tab;
        app.layout.leftScroll = shownLeftScroll(app);
        return true;
    }
    if (contains({0, kTabTop, app.layout.leftWidth, kTabHeight}, x, y))
        return true;  // the last tab's remainder
    if (const int subTab = voicesSubTabAt(app.layout, x, y); app.viewMode == kVoicesTab && subTab >= 0) {
        app.voicesSubTab = subTab;
        return true;
    }
    if (const int tab = tableTabAt(app.layout, x, y); tab >= 0) {
        app.tableTab = tab;
        app.engine->midiTableChoice = tab;  // MIDI keys are tuned to the table that is shown
        return true;
    }
    if (const int subTab = avatarSubTabAt(app.layout, x, y); app.tableTab == 0 && subTab >= 0) {
        app.avatarSubTab = subTab;
        app.engine->midiTableSetting = subTab;
        app.avatarScroll = 0;
        return true;
    }
    return false;
}

bool hitsButton(const AppState& app, const Widget& widget, int x, int y) {
    return tabOfButton(widget.label) == app.viewMode && contains(leftPanelView(app.layout), x, y) &&
           contains(leftButtonRect(app.layout, widget.label.c_str()), x, y);
}

bool hitsRow(const AppState& app, const Widget& widget, int x, int y) {
    if (!isShownRow(app, widget) || isInertRow(widget) || !contains(rowHitArea(app.layout), x, y))
        return false;
    const ShownRows shown = shownRows(app);
    return contains(gridCell(shown.grid, widget.group - shown.group), x, y);
}

}  // namespace

void handleClick(AppState& app, int x, int y) {
    if (y < kTopBarHeight) {
        clickTopBar(app, x, y);
        return;
    }
    if (clickTabs(app, x, y)) return;
    const auto hit = std::find_if(app.widgets.begin(), app.widgets.end(), [&](const Widget& widget) {
        if (widget.group == kTopBarGroup) return false;
        return widget.group == kLeftPanelGroup ? hitsButton(app, widget, x, y) : hitsRow(app, widget, x, y);
    });
    if (hit == app.widgets.end() || !hit->onClick) return;
    // A copy: an action may rebuild what it was taken from.
    const std::function<void()> action = hit->onClick;
    action();
}

}  // namespace veloria
