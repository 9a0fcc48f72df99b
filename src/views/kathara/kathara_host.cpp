#include "views/kathara/kathara_host.h"

#include <algorithm>
#include <span>

#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "toolkit/widgets.h"
#include "views/kathara/kathara_paint.h"
#include "views/kathara/solfeggio_grid.h"
#include "views/scene/scene_draw.h"
#include "views/shared/research_pages.h"

namespace veloria {

namespace {

constexpr std::size_t kMaxSceneNotes = 128;
constexpr int kMainPageLeft = 12;  // of the page's text in its body
constexpr int kPanelPageLeft = 10;
constexpr SDL_Color kTitleColor{220, 190, 130, 255};

// The notes as the scene takes them.
struct SceneNotes {
    std::array<float, kMaxSceneNotes> frequencies;
    std::array<float, kMaxSceneNotes> pans;
    std::size_t count = 0;

    [[nodiscard]] std::span<const float> frequencySpan() const { return {frequencies.data(), count}; }
    [[nodiscard]] std::span<const float> panSpan() const { return {pans.data(), count}; }
};

SceneNotes sceneNotes(const FrameSnapshot& snapshot) {
    SceneNotes notes;
    notes.count = std::min(snapshot.notes.size(), kMaxSceneNotes);
    for (std::size_t i = 0; i < notes.count; ++i) {
        notes.frequencies[i] = snapshot.notes[i].frequency;
        notes.pans[i] = snapshot.notes[i].pan;
    }
    return notes;
}

template <typename Flags>
bool anyOf(const Flags& flags) {
    return std::find(flags.begin(), flags.end(), true) != flags.end();
}

bool anythingHeld(const FrameSnapshot& snapshot) {
    return anyOf(snapshot.reflectionHeld) || anyOf(snapshot.rotationHeld) || anyOf(snapshot.shadowHeld);
}

// The scene with this camera; returns the azimuth that rotation has turned it to.
float drawScene(const DrawContext& context, const SDL_Rect& rect, KatharaViewState view,
                const FrameSnapshot& snapshot, float time) {
    const SceneNotes notes = sceneNotes(snapshot);
    const SceneSound sound{notes.frequencySpan(), notes.panSpan(), &snapshot.shadowHeld,
                           &snapshot.reflectionHeld, &snapshot.rotationHeld};
    drawKatharaScene(context, rect.x, rect.y, rect.w, rect.h, sound, time, view);
    return view.azimuth;
}

// Must the kept picture be drawn anew in this frame? Also when it shows something moving that has ended
// since: a load or a dialog can hold up the frames for longer than the picture goes on.
bool needsRedraw(KatharaState& state, const FrameSnapshot& snapshot, std::uint32_t ticks) {
    const bool moving = !snapshot.notes.empty() || anythingHeld(snapshot) || state.view.autoRotate;
    const bool outlived = state.sceneShowsMotion && ticks - state.sceneChangedAt >= kSceneAfterglowMs;
    if (moving || state.sceneDirty || outlived) {
        state.sceneDirty = false;
        state.sceneChangedAt = ticks;
    }
    state.sceneShowsMotion = moving;
    return moving || ticks - state.sceneChangedAt < kSceneAfterglowMs;
}

// Sees to it that there is a texture of the scene's size. A new one is empty, and so the scene has changed.
void fitTexture(const DrawContext& context, KatharaState& state, const SDL_Rect& scene) {
    if (state.sceneTexture != nullptr && state.sceneTextureW == scene.w && state.sceneTextureH == scene.h)
        return;
    dropSceneTexture(state);
    state.sceneTexture = SDL_CreateTexture(context.renderer, SDL_PIXELFORMAT_RGBA8888,
                                           SDL_TEXTUREACCESS_TARGET, scene.w, scene.h);
    if (state.sceneTexture == nullptr) return;
    SDL_SetTextureBlendMode(state.sceneTexture, SDL_BLENDMODE_BLEND);
    state.sceneTextureW = scene.w;
    state.sceneTextureH = scene.h;
}

void keepAzimuth(KatharaState& state, float azimuth) {
    if (state.view.autoRotate) state.view.azimuth = azimuth;
}

// False where the renderer refuses to draw into the texture.
bool redrawTexture(const DrawContext& context, KatharaState& state, const FrameSnapshot& snapshot,
                   float time) {
    SDL_Texture* before = SDL_GetRenderTarget(context.renderer);
    if (SDL_SetRenderTarget(context.renderer, state.sceneTexture) != 0) return false;
    const SDL_Rect all{0, 0, state.sceneTextureW, state.sceneTextureH};
    fillRect(context.renderer, all, context.theme->themeBackground, SDL_BLENDMODE_NONE);
    keepAzimuth(state, drawScene(context, all, state.view, snapshot, time));
    SDL_SetRenderTarget(context.renderer, before);
    return true;
}

void drawMainScene(const DrawContext& context, KatharaState& state, const SDL_Rect& scene,
                   const FrameSnapshot& snapshot, float time) {
    fitTexture(context, state, scene);
    const bool redraw = needsRedraw(state, snapshot, context.ticks);
    const bool kept =
        state.sceneTexture != nullptr && (!redraw || redrawTexture(context, state, snapshot, time));
    state.sceneDrawnInMainView = redraw || !kept;
    if (!kept) {
        // A renderer without targets, or without memory for one: the picture is drawn in its place each time.
        keepAzimuth(state, drawScene(context, scene, state.view, snapshot, time));
        state.sceneDirty = true;
        return;
    }
    SDL_RenderCopy(context.renderer, state.sceneTexture, nullptr, &scene);
}

void drawPanelBody(const DrawContext& context, KatharaState& state, const PanelLayout& panel,
                   const FrameSnapshot& snapshot, float time, SDL_Texture* backdrop) {
    if (state.researchMode) {
        drawResearchPage(context, panel.body, panel.body.x + kPanelPageLeft, katharaPage, state.panelPage);
        return;
    }
    if (!state.kathara3dMode) {
        const SceneNotes notes = sceneNotes(snapshot);
        drawSolfeggioGrid(context, panel.body, notes.frequencySpan(), time, backdrop);
        return;
    }
    const KatharaLayout layout = katharaPanelLayout(panel);
    const float azimuth = drawScene(context, layout.scene, state.view, snapshot, time);
    if (!state.sceneDrawnInMainView) keepAzimuth(state, azimuth);
    drawKatharaControls(context, layout, state.view);
}

}  // namespace

void drawKatharaMainView(const DrawContext& context, KatharaState& state, const SDL_Rect& mainView,
                         const FrameSnapshot& snapshot, float time) {
    const ClipGuard clip(context.renderer, mainView);
    const KatharaLayout layout = katharaMainLayout(mainView);
    fillRect(context.renderer, mainView, context.theme->themeBackground);
    if (state.researchMode) {
        state.sceneDirty = true;  // the kept picture falls behind meanwhile
        drawResearchPage(context, layout.scene, layout.scene.x + kMainPageLeft, katharaShortPage,
                         state.mainViewPage);
    } else {
        drawMainScene(context, state, layout.scene, snapshot, time);
    }
    drawKatharaControls(context, layout, state.view);
}

void drawKatharaPanel(const DrawContext& context, const PanelState& panel, KatharaState& state,
                      const FrameSnapshot& snapshot, float time, SDL_Texture* backdrop) {
    PanelStyle style;
    style.titleColor = kTitleColor;
    style.titleReserve = kInfoTitleReserve;
    style.info = state.researchMode ? InfoBox::On : InfoBox::Off;
    const char* title = state.researchMode ? "KATHARA  [Research]" : "KATHARA  [Solfeggio Grid]";
    drawPanel(context, panel, title, style, [&](const PanelLayout& layout) {
        drawPanelBody(context, state, layout, snapshot, time, backdrop);
    });
}

void dropSceneTexture(KatharaState& state) {
    if (state.sceneTexture != nullptr) SDL_DestroyTexture(state.sceneTexture);
    state.sceneTexture = nullptr;
    state.sceneTextureW = 0;
    state.sceneTextureH = 0;
    state.sceneDirty = true;
}

}  // namespace veloria
