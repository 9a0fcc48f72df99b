// A left press inside a host, from the first row that fits to the last:
//
//   where                     main view       panel, scene    panel, flat grid   research page
//   a button                  its action      its action      nothing            main view: its action
//   a slider's track          value, held     value, held     nothing            main view: value, held
//   object set: row           toggles         toggles         nothing            nothing
//   object set: coordinates   toggles         toggles         nothing            nothing
//   elsewhere in the scene    turns, held     turns, held     nothing            nothing
//
//   motion while held         turns or sets, in the host of the press, wherever the pointer is
//   left release              ends what is held
//   wheel                     zoom; in research mode the page of the host

#include "views/kathara/kathara_input.h"

#include <algorithm>

#include "toolkit/rect.h"
#include "views/scene/geometry/obj_export.h"

namespace veloria {

namespace {

constexpr float kAzimuthPerPixel = 0.4f;  // degrees
constexpr float kElevationPerPixel = 0.3f;
constexpr float kHighestElevation = 89.0f;
constexpr float kZoomPerNotch = 0.5f;
constexpr float kFarthestZoom = 15.0f;
constexpr float kInsideFov = 1.5f;

void lookFrom(KatharaViewState& view, float azimuth, float elevation) {
    view.azimuth = azimuth;
    view.elevation = elevation;
}

void pressButton(KatharaState& state, KatharaButton button) {
    KatharaViewState& view = state.view;
    state.sceneDirty = true;
    switch (button) {
        case KatharaButton::Front:
            return lookFrom(view, 0.0f, 0.0f);
        case KatharaButton::Top:
            return lookFrom(view, 0.0f, kHighestElevation);
        case KatharaButton::Side:
            return lookFrom(view, 90.0f, 0.0f);
        case KatharaButton::Inside:
            view.zoom = 0.0f;
            view.fov = kInsideFov;
            return;
        case KatharaButton::Auto:
            view.autoRotate = !view.autoRotate;
            return;
        case KatharaButton::Hz:
            view.showHz = !view.showHz;
            return;
        case KatharaButton::Export:
            exportKatharaObjDialog(view.teslaCoordinates);
            return;
    }
}

void setSlider(KatharaState& state, const KatharaLayout& layout, std::size_t slider, int x) {
    const SDL_Rect& track = layout.tracks[slider];
    if (track.w <= 0) return;  // the host was made narrow since the press
    const KatharaSlider& row = katharaSliders(layout.host)[slider];
    const float fraction = static_cast<float>(x - track.x) / static_cast<float>(track.w);
    state.view.*row.field = row.low + std::clamp(fraction, 0.0f, 1.0f) * row.width;
    state.sceneDirty = true;
}

bool pressObjectSet(KatharaState& state, const ObjectSetLayout& objectSet, int x, int y) {
    const int row = objectSetRowAt(objectSet, x, y);
    bool KatharaViewState::*field = &KatharaViewState::teslaCoordinates;
    if (row >= 0) {
        field = kObjectSetRows[static_cast<std::size_t>(row)].field;
    } else if (!contains(objectSet.coordinates, x, y)) {
        return false;
    }
    state.view.*field = !(state.view.*field);
    state.sceneDirty = true;
    return true;
}

void beginTurn(KatharaState& state, int x, int y) {
    state.draggingScene = true;
    state.dragStartX = x;
    state.dragStartY = y;
    state.dragStartAzimuth = state.view.azimuth;
    state.dragStartElevation = state.view.elevation;
}

void turn(KatharaState& state, int x, int y) {
    const auto across = static_cast<float>(x - state.dragStartX);
    const auto down = static_cast<float>(y - state.dragStartY);
    state.view.azimuth = state.dragStartAzimuth + across * kAzimuthPerPixel;
    state.view.elevation = std::clamp(state.dragStartElevation + down * kElevationPerPixel,
                                      -kHighestElevation, kHighestElevation);
    state.sceneDirty = true;
}

bool pressControl(KatharaState& state, const KatharaLayout& layout, int x, int y) {
    const int button = katharaButtonAt(layout, x, y);
    if (button >= 0) {
        pressButton(state, katharaButtons(layout.host)[static_cast<std::size_t>(button)].action);
        return true;
    }
    const int slider = katharaSliderAt(layout, x, y);
    if (slider < 0) return false;
    const auto index = static_cast<std::size_t>(slider);
    state.sliderDrag[index] = true;
    state.dragHost = layout.host;
    setSlider(state, layout, index, x);
    return true;
}

}  // namespace

bool katharaPress(KatharaState& state, const KatharaLayout& layout, int x, int y) {
    if (!contains(layout.area, x, y)) return false;
    const bool inPanel = layout.host == KatharaHost::Panel;
    if (inPanel && (state.researchMode || !state.kathara3dMode)) return false;
    if (pressControl(state, layout, x, y)) return true;
    if (state.researchMode || !contains(layout.scene, x, y)) return false;
    if (pressObjectSet(state, layout.objectSet, x, y)) return true;
    state.dragHost = layout.host;
    beginTurn(state, x, y);
    return true;
}

bool katharaMotion(KatharaState& state, const KatharaLayout& layout, int x, int y) {
    if (!isKatharaHeld(state)) return false;
    if (state.draggingScene) turn(state, x, y);
    for (std::size_t i = 0; i < state.sliderDrag.size(); ++i) {
        if (state.sliderDrag[i]) setSlider(state, layout, i, x);
    }
    return true;
}

void katharaRelease(KatharaState& state) {
    state.draggingScene = false;
    state.sliderDrag.fill(false);
    state.dragHost = KatharaHost::None;
}

void katharaWheel(KatharaState& state, KatharaHost host, int wheel) {
    if (state.researchMode) {
        scrollResearchPage(host == KatharaHost::MainView ? state.mainViewPage : state.panelPage, wheel);
        return;
    }
    state.view.zoom =
        std::clamp(state.view.zoom - static_cast<float>(wheel) * kZoomPerNotch, 0.0f, kFarthestZoom);
    state.sceneDirty = true;
}

bool katharaTitlePress(KatharaState& state, const PanelLayout& panel, int x, int y) {
    if (!contains(panel.info, x, y)) return false;
    state.researchMode = !state.researchMode;
    return true;
}

bool isKatharaHeld(const KatharaState& state) {
    return state.dragHost != KatharaHost::None;
}

}  // namespace veloria
