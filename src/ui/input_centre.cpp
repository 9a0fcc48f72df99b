// The centre view's share of the input.
#include "ui/input_steps.h"
#include "views/kathara/kathara_input.h"

namespace veloria {

namespace {

bool inCentre(const AppState& app, const PointerEvent& pointer) {
    return centreShown(app.layout) && contains(app.layout.centre, pointer.x, pointer.y);
}

}  // namespace

void renderMemoryEvent(AppState& app, const SDL_Event& event) {
    if (event.type == SDL_RENDER_DEVICE_RESET) {
        clearTextCache(app.textCache);
        freeAssets(app.assets);
    }
    if (event.type == SDL_RENDER_DEVICE_RESET || event.type == SDL_RENDER_TARGETS_RESET) {
        dropSceneTexture(app.kathara);
    }
}

bool centreViewEvent(AppState& app, const SDL_Event& event, const PointerEvent& pointer) {
    KatharaState& state = app.kathara;
    if (pointer.leftUp) katharaRelease(state);
    if (pointer.motion && state.dragHost == KatharaHost::MainView) {
        return katharaMotion(state, katharaMainLayout(app.layout.centre), pointer.x, pointer.y);
    }
    if (!inCentre(app, pointer)) return false;
    if (pointer.wheel) {
        katharaWheel(state, KatharaHost::MainView, event.wheel.y);
        return true;
    }
    if (!pointer.leftDown || splitterAt(app.layout, pointer.x, pointer.y) != Splitter::None) return false;
    return katharaPress(state, katharaMainLayout(app.layout.centre), pointer.x, pointer.y);
}

}  // namespace veloria
