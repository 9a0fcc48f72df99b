// What surrounds the Kathara scene: the main view and the floating panel "KATHARA", which share one camera
// and show the scene or, in research mode, a page of text.
#pragma once

#include <SDL.h>

#include <array>
#include <cstdint>

#include "toolkit/draw_context.h"
#include "toolkit/panel_frame.h"
#include "views/kathara/kathara_layout.h"
#include "views/scene/geometry/camera.h"
#include "views/shared/frame_snapshot.h"
#include "views/shared/research_page.h"

namespace veloria {

struct KatharaState {
    KatharaViewState view;
    bool researchMode = false;  // text in place of the scene, in both hosts
    bool kathara3dMode = true;  // off: the panel shows the flat grid; no control changes it
    PageScroll panelPage;       // each host scrolls a page of its own
    PageScroll mainViewPage;

    // The main view keeps its picture and draws it anew only while something moves.
    SDL_Texture* sceneTexture = nullptr;
    int sceneTextureW = 0;  // pixels
    int sceneTextureH = 0;
    bool sceneDirty = true;             // what it shows may no longer be so
    bool sceneShowsMotion = false;      // it was drawn while something sounded, was held or turned
    std::uint32_t sceneChangedAt = 0;   // ms, of the last change
    bool sceneDrawnInMainView = false;  // in this frame; the panel then does not turn the camera once more

    // What the left button holds, and in which host it was pressed.
    KatharaHost dragHost = KatharaHost::None;
    bool draggingScene = false;
    int dragStartX = 0;
    int dragStartY = 0;
    float dragStartAzimuth = 0.0f;
    float dragStartElevation = 0.0f;
    std::array<bool, kKatharaSliderCount> sliderDrag{};
};

inline constexpr std::uint32_t kSceneAfterglowMs = 500;  // the picture goes on for so long after a change

// The main view in its rectangle, pixels of the window. Main thread, as all below.
void drawKatharaMainView(const DrawContext& context, KatharaState& state, const SDL_Rect& mainView,
                         const FrameSnapshot& snapshot, float time);

// The floating panel; nothing while it is closed. `backdrop` may be null.
void drawKatharaPanel(const DrawContext& context, const PanelState& panel, KatharaState& state,
                      const FrameSnapshot& snapshot, float time, SDL_Texture* backdrop);

// Throws the kept picture away: its memory is lost, or the renderer is about to go.
void dropSceneTexture(KatharaState& state);

}  // namespace veloria
