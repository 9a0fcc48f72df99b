#include "views/scene/object_set.h"

#include "toolkit/primitives.h"
#include "toolkit/rect.h"
#include "toolkit/text.h"

namespace veloria {

namespace {

constexpr SDL_Color kFill{18, 16, 26, 200};
constexpr SDL_Color kBorder{60, 55, 80, 150};
constexpr SDL_Color kOnText{255, 255, 255, 255};
constexpr SDL_Color kOffDisc{60, 55, 75, 180};
constexpr SDL_Color kOffHole{18, 16, 26, 255};
constexpr SDL_Color kOffText{160, 158, 170, 170};
constexpr SDL_Color kTreeText{220, 175, 55, 220};
constexpr SDL_Color kTeslaText{80, 255, 200, 220};
constexpr SDL_Color kOtherText{70, 65, 90, 130};  // of the coordinates that are not in force
constexpr SDL_Color kBarText{90, 85, 110, 150};

void drawRow(const DrawContext& context, const ObjectSetRow& row, SDL_Point corner, bool on) {
    const int x = corner.x + 6;
    const int y = corner.y + 7;
    fillCircle(context.renderer, x, y, 4, on ? row.colour : kOffDisc);
    if (!on) fillCircle(context.renderer, x, y, 2, kOffHole);
    DrawText(context, row.label, corner.x + 16, corner.y + 1, context.fonts->fontTiny,
             on ? kOnText : kOffText);
}

}  // namespace

ObjectSetLayout objectSetLayout(const SDL_Rect& scene) {
    const SDL_Point corner{scene.x + 6, scene.y + 28};
    return {{corner.x - 2, corner.y - 2, 134, 164}, corner, {corner.x, corner.y + 168, 130, 14}};
}

int objectSetRowAt(const ObjectSetLayout& layout, int x, int y) {
    if (!contains(layout.box, x, y)) return -1;
    const int row = (y - layout.firstRow.y) / kObjectSetRowHeight;
    return row < static_cast<int>(kObjectSetRows.size()) ? row : -1;
}

void drawObjectSet(const DrawContext& context, const ObjectSetLayout& layout, const KatharaViewState& view) {
    fillRect(context.renderer, layout.box, kFill);
    outlineRect(context.renderer, layout.box, kBorder);
    SDL_Point corner = layout.firstRow;
    for (const ObjectSetRow& row : kObjectSetRows) {
        drawRow(context, row, corner, view.*row.field);
        corner.y += kObjectSetRowHeight;
    }
    TTF_Font* font = context.fonts->fontTiny;
    const SDL_Rect& place = layout.coordinates;
    DrawText(context, "Tree", place.x + 4, place.y, font, view.teslaCoordinates ? kOtherText : kTreeText);
    DrawText(context, "|", place.x + 36, place.y, font, kBarText);
    DrawText(context, "Tesla", place.x + 44, place.y, font, view.teslaCoordinates ? kTeslaText : kOtherText);
}

}  // namespace veloria
