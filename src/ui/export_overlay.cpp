#include "ui/export_overlay.h"

#include <algorithm>

#include "base/format.h"
#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "toolkit/widgets.h"
#include "ui/input_steps.h"

namespace veloria {

namespace {

constexpr int kWidth = 320;
constexpr int kHeight = 48;
constexpr int kTextTop = 5;
constexpr int kTextHeight = 18;
constexpr int kBarInset = 12;
constexpr int kBarTop = 30;
constexpr int kBarHeight = 8;
constexpr int kCancelGap = 6;
constexpr int kCancelWidth = 70;
constexpr int kCancelRadius = 6;
constexpr int kHoverRise = 30;
constexpr SDL_Color kCancelColor{120, 50, 50, 255};
constexpr SDL_Color kWhite{255, 255, 255, 255};

void drawCancel(const AppState& app, const SDL_Rect& rect) {
    const bool under = contains(rect, app.draw.mouseX, app.draw.mouseY);
    const SDL_Color color = under ? brighten(kCancelColor, kHoverRise) : kCancelColor;
    DrawGradientButton(app.draw, rect, kCancelRadius, color, false);
    DrawTextCentered(app.draw, "Cancel", rect, app.fonts.fontTab, kWhite);
}

bool endsExport(const AppState& app, const SDL_Event& event) {
    switch (event.type) {
        case SDL_QUIT:
            return true;
        case SDL_KEYDOWN:
            return event.key.keysym.sym == SDLK_ESCAPE;
        case SDL_MOUSEBUTTONDOWN:
            // Where the button is not shown yet the press was meant for something else.
            return event.button.button == SDL_BUTTON_LEFT && app.recorder.exportProgress > 0.0f &&
                   contains(exportOverlayLayout(app.layout).cancel, event.button.x, event.button.y);
        default:
            return false;
    }
}

bool isKept(const SDL_Event& event) {
    return event.type == SDL_QUIT || event.type == SDL_WINDOWEVENT || event.type == SDL_MOUSEBUTTONUP ||
           event.type == SDL_KEYUP;
}

}  // namespace

ExportOverlayLayout exportOverlayLayout(const WindowLayout& layout) {
    const SDL_Rect box{(layout.windowW - kWidth) / 2, (layout.windowH - kHeight) / 2, kWidth, kHeight};
    return {box,
            {box.x, box.y + kTextTop, box.w, kTextHeight},
            {box.x + kBarInset, box.y + kBarTop, box.w - 2 * kBarInset, kBarHeight},
            {box.x + box.w + kCancelGap, box.y, kCancelWidth, box.h}};
}

void drawExportOverlay(const AppState& app, float progress) {
    const float done = progress > 0.0f ? std::min(progress, 1.0f) : 0.0f;  // a NaN shows as 0
    const ExportOverlayLayout at = exportOverlayLayout(app.layout);
    fillRect(app.renderer, at.box, {12, 12, 18, 235});
    outlineRect(app.renderer, at.box, {60, 160, 200, 220});
    DrawTextCentered(app.draw, formatText("Rendering WAV... %d%%", static_cast<int>(done * 100.0f)), at.text,
                     app.fonts.fontTab, app.theme.themeText);
    fillRect(app.renderer, at.track, app.theme.themeTrack);
    const int width = static_cast<int>(done * static_cast<float>(at.track.w));
    fillRect(app.renderer, {at.track.x, at.track.y, width, at.track.h}, {60, 180, 100, 255});
    drawCancel(app, at.cancel);
}

bool exportGoesOn(AppState& app, ExportEvents& events) {
    bool goesOn = true;
    for (SDL_Event event; SDL_PollEvent(&event) != 0;) {
        renderMemoryEvent(app, event);
        if (endsExport(app, event)) goesOn = false;
        if (isKept(event)) events.kept.push_back(event);
    }
    return goesOn;
}

void giveBackEvents(ExportEvents& events) {
    for (SDL_Event& event : events.kept)
        SDL_PushEvent(&event);
    events.kept.clear();
}

}  // namespace veloria
