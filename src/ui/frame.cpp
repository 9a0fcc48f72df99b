#include "ui/frame.h"

#include <algorithm>
#include "recorder/playback.h"
#include "recorder_panel/panel.h"
#include "toolkit/primitives.h"
#include "ui/draw.h"
#include "ui/export_overlay.h"
#include "ui/floating_panels.h"
#include "ui/scrolling.h"
#include "ui/sound_tick.h"
#include "views/lotus/lotus_energy.h"
#include "views/splash.h"

namespace veloria {

namespace {

void prepareContext(AppState& app, std::uint32_t nowMs) {
    DrawContext& draw = app.draw;
    draw.renderer = app.renderer;
    draw.fonts = &app.fonts;
    draw.theme = &app.theme;
    draw.textCache = &app.textCache;
    SDL_GetMouseState(&draw.mouseX, &draw.mouseY);
    draw.windowW = app.layout.windowW;
    draw.windowH = app.layout.windowH;
    draw.ticks = nowMs;
}

void prepareLayout(AppState& app) {
    int width = 0;
    int height = 0;
    if (app.window != nullptr) {
        SDL_GetWindowSize(app.window, &width, &height);
    } else {
        SDL_GetRendererOutputSize(app.renderer, &width, &height);
    }
    initPanelSizes(app.sizes, width);
    layOutWindow(app, width, height);
    settleFloatingWindows(app);
    app.hits = {};  // what this frame does not draw cannot be hit
}

void clearWindow(const AppState& app) {
    const SDL_Color& color = app.theme.themeBackground;
    SDL_RenderSetClipRect(app.renderer, nullptr);
    SDL_SetRenderDrawBlendMode(app.renderer, SDL_BLENDMODE_BLEND);
    SDL_SetRenderDrawColor(app.renderer, color.r, color.g, color.b, color.a);
    SDL_RenderClear(app.renderer);
}

void drawLeftTabContents(AppState& app) {
    if (!leftPanelShown(app.layout)) return;
    switch (app.viewMode) {
        case kTuningTab:
            drawTuningTab(app);
            break;
        case kFxTab:
            drawFxTab(app);
            break;
        case kSysTab:
            drawSysTab(app);
            break;
        default:
            break;
    }
}

void drawCentreView(AppState& app) {
    app.kathara.sceneDrawnInMainView = false;
    if (!centreShown(app.layout)) return;
    drawKatharaMainView(app.draw, app.kathara, app.layout.centre, app.snapshot, app.lotus.viewTime);
}

}  // namespace

void composeFrame(AppState& app, std::uint32_t nowMs) {
    // For a frame that the loop has not ticked for, as the one behind an export.
    tickSound(app, nowMs);
    takeFrameSnapshot(*app.engine, app.scope, app.players.retuner, app.snapshot);
    loadAssetsOnce(app.assets, app.renderer);
    updateLotusEnergy(app.lotus, app.snapshot.scope);
    prepareLayout(app);
    prepareContext(app, nowMs);
    const SDL_Point mouse{app.draw.mouseX, app.draw.mouseY};
    // What a floating window covers does not light up under the pointer.
    if (isUnderFloatingWindow(app, mouse.x, mouse.y)) app.draw.mouseX = app.draw.mouseY = -1;

    clearWindow(app);
    drawTopBar(app);
    drawLeftPanelFrame(app);
    drawLeftTabContents(app);
    drawTopBarButtons(app);
    if (leftPanelShown(app.layout) && app.viewMode == kVoicesTab) drawVoicesTab(app);
    drawRightPanel(app);
    drawWidgets(app);
    drawLeftScrollBar(app);
    drawRowScrollBar(app);
    drawRecorder(app.draw, app.recorder, app.layout.recorder);
    drawStatusBar(app);
    drawCentreView(app);
    drawWelcomeSplash(app.draw, app.splashStart);
    drawRecorderEdit(app.draw, app.recorder, app.layout.recorder);
    app.draw.mouseX = mouse.x;
    app.draw.mouseY = mouse.y;
    drawFloatingPanels(app);
    drawCalculator(app.draw, app.calculator);
    drawDroneGhost(app.draw, app.recorder);
    // Over everything: while it shows, nothing else can be done.
    if (app.recorder.exportProgress > 0.0f) drawExportOverlay(app, app.recorder.exportProgress);
}

void renderFrame(AppState& app, std::uint32_t nowMs) {
    composeFrame(app, nowMs);
    SDL_RenderPresent(app.renderer);
}

}  // namespace veloria
