#include "ui/frame.h"

#include <algorithm>

#include "recorder/playback.h"
#include "recorder_panel/panel.h"
#include "toolkit/primitives.h"
#include "ui/draw.h"
#include "ui/floating_panels.h"
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
    app.layout = windowLayout(app.sizes, width, height);
    app.hits = {};  // what this frame does not draw cannot be hit
}

void clearWindow(const AppState& app) {
    const SDL_Color& color = app.theme.themeBackground;
    SDL_RenderSetClipRect(app.renderer, nullptr);
    SDL_SetRenderDrawBlendMode(app.renderer, SDL_BLENDMODE_BLEND);
    SDL_SetRenderDrawColor(app.renderer, color.r, color.g, color.b, color.a);
    SDL_RenderClear(app.renderer);
}

// What moves with time. An export holds the engine's voices: nothing may begin or end one meanwhile.
void advance(AppState& app, std::uint32_t nowMs) {
    const float seconds = app.lastFrameMs == 0 ? 0.0f : static_cast<float>(nowMs - app.lastFrameMs) * 0.001f;
    app.lastFrameMs = nowMs;
    if (app.exporting) return;
    tickRecorder(app.recorder, std::min(seconds, 0.1f));
    walkerTick(app.walker, *app.engine, nowMs);
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
    advance(app, nowMs);
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
