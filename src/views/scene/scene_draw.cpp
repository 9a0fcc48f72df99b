#include "views/scene/scene_draw.h"

#include "toolkit/primitives.h"
#include "views/scene/object_set.h"
#include "views/scene/scene_canvas.h"
#include "views/scene/scene_overlays.h"
#include "views/scene/scene_paint.h"
#include "views/scene/vitruvian_figure.h"
#include "views/shared/pulse.h"

namespace veloria {

namespace {

constexpr SDL_Color kSpace{22, 20, 30, 255};
constexpr float kTurn = 0.25f;  // degrees a picture

void drawItems(const SceneCanvas& canvas, const SceneSound& sound) {
    SceneItems items;
    SceneLabels labels;
    buildSceneItems(canvas.view, canvas.rect, sound, items);
    sortSceneItems(items);
    for (const SceneItem& item : items.all())
        paintSceneItem(canvas, item, labels);
}

}  // namespace

void drawKatharaScene(const DrawContext& context, int x, int y, int w, int h, const SceneSound& sound,
                      float time, KatharaViewState& view) {
    if (w <= 0 || h <= 0) return;
    const SDL_Rect rect{x, y, w, h};
    const ClipGuard clip(context.renderer, rect);
    fillRect(context.renderer, rect, kSpace);
    const SceneCanvas canvas{context, rect, view, pulseAt(time * 1.5f)};
    if (view.showGrid) drawFloor(canvas);
    if (view.autoRotate) view.azimuth += kTurn;  // the floor is a step behind
    if (view.showMerkaba) drawMerkaba(canvas);
    drawItems(canvas, sound);
    if (view.showCentroid) drawCentroids(canvas, sound);
    drawSceneLegend(canvas);
    drawStatusLine(canvas);
    if (view.showVitruvian) drawVitruvianFigure(canvas);
    drawObjectSet(context, objectSetLayout(rect), view);
}

}  // namespace veloria
