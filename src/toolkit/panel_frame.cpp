#include "toolkit/panel_frame.h"

#include <algorithm>

#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"

namespace veloria {

namespace {

constexpr int kTitleHeight = 22;
constexpr int kBoxSize = 18;
constexpr int kBoxPitch = 20;        // the width that a box takes of a press
constexpr int kBoxTop = 2;           // below the panel's top
constexpr int kCloseFromRight = 20;  // of the box's left edge
constexpr int kMaximiseFromRight = 42;
constexpr int kInfoFromRight = 64;
constexpr int kCornerSize = 14;
constexpr int kBodyInset = 2;
constexpr int kBodyTop = 24;
constexpr int kGlyphSize = 8;
constexpr int kGlyphShift = 2;  // between the two squares of a maximised panel
constexpr int kGripStrokes = 3;
constexpr int kGripPitch = 4;

constexpr SDL_Color kBodyColor{22, 20, 30, 248};
constexpr SDL_Color kTitleBarColor{42, 40, 56, 255};
constexpr SDL_Color kCloseGlyph{255, 255, 255, 255};
constexpr SDL_Color kInfoOn{180, 150, 40, 220};
constexpr SDL_Color kInfoOff{60, 55, 80, 220};
constexpr SDL_Color kInfoGlyph{255, 255, 255, 255};
constexpr int kBorderAlpha = 220;
constexpr int kGripAlpha = 120;

void drawMaximiseBox(const DrawContext& context, const SDL_Rect& box, const PanelStyle& style,
                     bool maximised) {
    fillRect(context.renderer, box, style.maximiseColor);
    const int inset = (kBoxSize - kGlyphSize) / 2;
    const int shift = maximised ? kGlyphShift / 2 : 0;
    const SDL_Rect front{box.x + inset - shift, box.y + inset + shift, kGlyphSize, kGlyphSize};
    outlineRect(context.renderer, front, style.maximiseGlyph);
    if (!maximised) return;
    const SDL_Rect back{front.x + kGlyphShift, front.y - kGlyphShift, kGlyphSize, kGlyphSize};
    outlineRect(context.renderer, back, style.maximiseGlyph);
}

void drawInfoBox(const DrawContext& context, const SDL_Rect& box, InfoBox state) {
    if (state == InfoBox::None) return;
    fillRect(context.renderer, box, state == InfoBox::On ? kInfoOn : kInfoOff);
    DrawTextCentered(context, "i", box, context.fonts->fontLabel, kInfoGlyph);
}

}  // namespace

PanelLayout panelLayout(const PanelState& panel, int windowW, int windowH) {
    const SDL_Rect frame = panel.maximised ? SDL_Rect{0, 0, windowW, windowH} : panel.rect;
    const int right = frame.x + frame.w;
    const int bottom = frame.y + frame.h;
    const int boxY = frame.y + kBoxTop;
    PanelLayout layout{};
    layout.frame = frame;
    layout.title = {frame.x, frame.y, frame.w, kTitleHeight};
    layout.close = {right - kCloseFromRight, boxY, kBoxSize, kBoxSize};
    layout.maximise = {right - kMaximiseFromRight, boxY, kBoxSize, kBoxSize};
    layout.info = {right - kInfoFromRight, boxY, kBoxSize, kBoxSize};
    layout.closeHit = {layout.close.x, boxY, kBoxPitch, kBoxSize};
    layout.maximiseHit = {layout.maximise.x, boxY, kBoxPitch, kBoxSize};
    if (!panel.maximised) {
        layout.corner = {right - kCornerSize, bottom - kCornerSize, kCornerSize, kCornerSize};
    }
    layout.body = {frame.x + kBodyInset, frame.y + kBodyTop, std::max(frame.w - 2 * kBodyInset, 0),
                   std::max(frame.h - kBodyTop - kBodyInset, 0)};
    return layout;
}

void drawCloseBox(const DrawContext& context, const SDL_Rect& box, SDL_Color color) {
    fillRect(context.renderer, box, color);
    DrawTextCentered(context, "X", box, context.fonts->fontLabel, kCloseGlyph);
}

PanelLayout drawPanelFrame(const DrawContext& context, const PanelState& panel, std::string_view title,
                           const PanelStyle& style) {
    const PanelLayout layout = panelLayout(panel, context.windowW, context.windowH);
    fillRect(context.renderer, layout.frame, kBodyColor);
    fillRect(context.renderer, layout.title, kTitleBarColor);
    outlineRect(context.renderer, layout.frame, withAlpha(style.titleColor, kBorderAlpha));
    {
        const SDL_Rect room{layout.title.x, layout.title.y, std::max(layout.title.w - style.titleReserve, 0),
                            layout.title.h};
        const ClipGuard clip(context.renderer, room);
        DrawText(context, title, layout.title.x + 8, layout.title.y + 4, context.fonts->fontTab,
                 withAlpha(style.titleColor, 255));
    }
    if (style.titleControls) style.titleControls(layout);
    drawInfoBox(context, layout.info, style.info);
    drawCloseBox(context, layout.close, style.closeColor);
    drawMaximiseBox(context, layout.maximise, style, panel.maximised);
    return layout;
}

void drawPanelGrip(const DrawContext& context, const PanelState& panel) {
    if (panel.maximised) return;
    const PanelLayout layout = panelLayout(panel, context.windowW, context.windowH);
    // Just inside the border, so that the longest stroke ends on the corner's edges.
    const int right = layout.corner.x + layout.corner.w - 2;
    const int bottom = layout.corner.y + layout.corner.h - 2;
    const SDL_Color color = withAlpha(context.theme->themeAccent, kGripAlpha);
    for (int stroke = 1; stroke <= kGripStrokes; ++stroke) {
        const int reach = stroke * kGripPitch;
        drawLine(context.renderer, right - reach, bottom, right, bottom - reach, color);
    }
}

void drawPanel(const DrawContext& context, const PanelState& panel, std::string_view title,
               const PanelStyle& style, const std::function<void(const PanelLayout&)>& content) {
    if (!panel.open) return;
    const PanelLayout layout = drawPanelFrame(context, panel, title, style);
    if (content) {
        const ClipGuard clip(context.renderer, layout.body);
        content(layout);
    }
    drawPanelGrip(context, panel);
}

}  // namespace veloria
