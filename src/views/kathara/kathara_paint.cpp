#include "views/kathara/kathara_paint.h"

#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "toolkit/widgets.h"

namespace veloria {

namespace {

constexpr float kInsideZoom = 0.5f;  // nearer than this the camera is in the scene

// The panel's own colours; the main view has the theme's.
constexpr SDL_Color kPanelLit{50, 140, 120, 220};
constexpr SDL_Color kPanelIdle{50, 45, 65, 220};
constexpr SDL_Color kPanelLitText{220, 255, 240, 255};
constexpr SDL_Color kPanelIdleText{180, 175, 160, 200};
constexpr SDL_Color kPanelStrip{25, 22, 38, 255};
constexpr SDL_Color kPanelCaption{180, 175, 200, 220};

void drawThemeButton(const DrawContext& context, const SDL_Rect& rect, const char* label, bool lit) {
    const Theme& theme = *context.theme;
    fillRect(context.renderer, rect, lit ? theme.themeTabActive : theme.themeTabIdle);
    outlineRect(context.renderer, rect, lit ? theme.themeAccent : theme.themeBorder);
    DrawTextCentered(context, label, rect, context.fonts->fontLabel,
                     lit ? theme.themeText : theme.themeTextDim);
}

void drawPanelButton(const DrawContext& context, const SDL_Rect& rect, const char* label, bool lit) {
    fillRect(context.renderer, rect, lit ? kPanelLit : kPanelIdle);
    DrawTextCentered(context, label, rect, context.fonts->fontLabel, lit ? kPanelLitText : kPanelIdleText);
}

void drawButtons(const DrawContext& context, const KatharaLayout& layout, const KatharaViewState& view) {
    const auto rows = katharaButtons(layout.host);
    const auto draw = layout.host == KatharaHost::MainView ? drawThemeButton : drawPanelButton;
    for (std::size_t i = 0; i < rows.size(); ++i)
        draw(context, layout.buttons[i], rows[i].label, isLit(rows[i].action, view));
}

void drawSliders(const DrawContext& context, const KatharaLayout& layout, const KatharaViewState& view,
                 SDL_Color captionColor) {
    TTF_Font* font = context.fonts->fontLabel;
    const auto& sliders = katharaSliders(layout.host);
    for (std::size_t i = 0; i < sliders.size(); ++i) {
        const SDL_Point place = layout.captions[i];
        const int height = measureText(font, sliders[i].caption).y;
        DrawText(context, sliders[i].caption, place.x, place.y - height / 2, font, captionColor);
        if (layout.tracks[i].w <= 0) continue;
        DrawSlider(context, layout.tracks[i], view.*sliders[i].field - sliders[i].low, sliders[i].width,
                   context.theme->themeAccent, context.theme->themeKnob);
    }
}

void drawToolbar(const DrawContext& context, const SDL_Rect& toolbar) {
    fillRect(context.renderer, toolbar, context.theme->themePanel);
    DrawText(context, "Kathara 3D", toolbar.x + 6, toolbar.y + 5, context.fonts->fontTab,
             context.theme->themeText);
}

}  // namespace

bool isLit(KatharaButton button, const KatharaViewState& view) {
    switch (button) {
        case KatharaButton::Inside:
            return view.zoom < kInsideZoom;
        case KatharaButton::Auto:
            return view.autoRotate;
        case KatharaButton::Hz:
            return view.showHz;
        default:
            return false;
    }
}

void drawKatharaControls(const DrawContext& context, const KatharaLayout& layout,
                         const KatharaViewState& view) {
    const Theme& theme = *context.theme;
    const int right = layout.area.x + layout.area.w - 1;
    if (layout.host == KatharaHost::Panel) {
        drawButtons(context, layout, view);
        fillRect(context.renderer, layout.strip, kPanelStrip);
        drawSliders(context, layout, view, kPanelCaption);
        return;
    }
    drawToolbar(context, layout.toolbar);
    drawButtons(context, layout, view);
    fillRect(context.renderer, layout.strip, theme.themePanel);
    hLine(context.renderer, layout.area.x, right, layout.strip.y, theme.themeBorder);
    drawSliders(context, layout, view, theme.themeTextDim);
    hLine(context.renderer, layout.area.x, right, layout.area.y + layout.area.h - 1, theme.themeBorder);
}

}  // namespace veloria
