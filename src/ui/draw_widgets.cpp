#include <string>

#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "toolkit/widgets.h"
#include "ui/draw.h"

namespace veloria {

namespace {

constexpr int kHoverRise = 30;
constexpr int kFlatAlpha = 230;
constexpr int kFlatIdleOutlineAlpha = 200;
constexpr int kIconWidth = 30;  // by which the text of a button with an icon is shifted
constexpr int kCornerRadius = 6;
constexpr int kDetailGap = 2;
constexpr int kShadowClipTop = 60;  // the panel's tabs end there, two rows above the first cell
constexpr SDL_Color kWhite{255, 255, 255, 255};
constexpr SDL_Color kFlatIdleText{160, 160, 180, 200};
constexpr SDL_Color kLitDetail{255, 255, 200, 255};
constexpr SDL_Color kIdleDetail{220, 220, 180, 180};

// One widget as it stands in this frame.
struct Face {
    const Widget& widget;
    SDL_Rect rect;
    SDL_Color color;  // brighter under the mouse
    bool lit;
};

void drawFlatGround(const AppState& app, const Face& face) {
    const SDL_Color fill = face.lit ? face.color : app.theme.themeTrack;
    fillRect(app.renderer, face.rect, withAlpha(fill, kFlatAlpha));
    outlineRect(
        app.renderer, face.rect,
        face.lit ? withAlpha(face.color, 255) : withAlpha(app.theme.themeBorder, kFlatIdleOutlineAlpha));
}

void drawTexts(const AppState& app, const Face& face, int shift, SDL_Color color) {
    TTF_Font* font = app.fonts.fontRow;
    const SDL_Rect area{face.rect.x + shift, face.rect.y, face.rect.w - shift, face.rect.h};
    if (face.widget.detail.empty()) {
        DrawTextUtf8Centered(app.draw, face.widget.label, area, font, color);
        return;
    }
    const int line = font == nullptr ? 0 : TTF_FontHeight(font);
    const int top = area.y + (area.h - 2 * line - kDetailGap) / 2;
    DrawTextUtf8Centered(app.draw, face.widget.label, {area.x, top, area.w, line}, font, color);
    DrawTextUtf8Centered(app.draw, face.widget.detail, {area.x, top + line + kDetailGap, area.w, line}, font,
                         face.lit ? kLitDetail : kIdleDetail);
}

// The middle of the lamp, in the upper right corner. On a narrow button it makes way for a label that would
// reach under it.
SDL_Point lampPlace(const AppState& app, const Face& face, int shift) {
    constexpr int kNarrow = 80;
    constexpr int kWay = 3;
    SDL_Point place{face.rect.x + face.rect.w - 9, face.rect.y + 8};
    const int label = measureTextUtf8(app.fonts.fontRow, face.widget.label).x;
    const int labelEnd = face.rect.x + shift + (face.rect.w - shift - label) / 2 + label;
    if (face.rect.w >= kNarrow || labelEnd <= place.x - kLampReach) return place;
    return {place.x + kWay, place.y - kWay};
}

void drawFace(const AppState& app, const Face& face) {
    const bool flat = hasButtonIcon(face.widget.label);
    if (flat) {
        drawFlatGround(app, face);
        drawButtonIcon(app.draw, face.widget.label, face.rect, face.lit);
    } else {
        DrawGradientButton(app.draw, face.rect, kCornerRadius, face.color, face.lit);
    }
    const ClipGuard clip(app.renderer, face.rect);  // a text wider than a narrow panel's button
    const int shift = flat ? kIconWidth : 0;
    drawTexts(app, face, shift, flat && !face.lit ? kFlatIdleText : kWhite);
    const SDL_Point lamp = lampPlace(app, face, shift);
    drawLamp(app.draw, lamp.x, lamp.y, face.color, face.lit);
}

// A number of the Avatar table among the Shadow rows.
void drawInertRow(const AppState& app, const Widget& widget, const SDL_Rect& rect) {
    constexpr int kTextDrop = 13;
    fillRect(app.renderer, rect, {45, 40, 55, 160});
    outlineRect(app.renderer, rect, {80, 70, 100, 80});
    const ClipGuard clip(app.renderer, rect);
    TTF_Font* font = app.fonts.fontRow;
    DrawTextUtf8(app.draw, widget.label, rect.x + 6, rect.y + kTextDrop, font, {120, 110, 140, 140});
    DrawTextUtf8(app.draw, "AVT", rect.x + rect.w - 32, rect.y + kTextDrop, font, {180, 140, 60, 140});
}

// A widget within the band that its kind is cut to, and by which it takes the mouse.
void drawWidget(const AppState& app, const Widget& widget, const SDL_Rect& rect, const SDL_Rect& band) {
    if (isEmpty(rect) || SDL_HasIntersection(&rect, &band) == SDL_FALSE) return;
    const ClipGuard clip(app.renderer, band);
    if (isInertRow(widget)) {
        drawInertRow(app, widget, rect);
        return;
    }
    const int x = app.draw.mouseX;
    const int y = app.draw.mouseY;
    const bool hover = contains(rect, x, y) && contains(band, x, y);
    drawFace(app,
             {widget, rect, hover ? brighten(widget.color, kHoverRise) : widget.color, isLit(app, widget)});
}

void drawLeftButton(const AppState& app, const Widget& widget) {
    if (!leftPanelShown(app.layout) || tabOfButton(widget.label) != app.viewMode) return;
    drawWidget(app, widget, leftButtonRect(app.layout, widget.label.c_str()), leftPanelView(app.layout));
}

// What the rows of the shown table are cut to.
SDL_Rect rowBand(const AppState& app) {
    return rowClip(app.layout, app.tableTab == 1 ? kShadowClipTop : kAvatarRowsTop);
}

}  // namespace

void drawWidgets(const AppState& app) {
    const ShownRows rows = shownRows(app);
    const SDL_Rect band = rowBand(app);
    for (const Widget& widget : app.widgets) {
        if (widget.group == kTopBarGroup) continue;
        if (widget.group == kLeftPanelGroup) {
            drawLeftButton(app, widget);
        } else if (rightPanelShown(app.layout) && isShownRow(app, widget)) {
            drawWidget(app, widget, gridCell(rows.grid, widget.group - rows.group), band);
        }
    }
}

}  // namespace veloria
