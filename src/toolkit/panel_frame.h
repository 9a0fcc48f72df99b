// The common frame of the floating panels: where its parts lie and how they look.
#pragma once

#include <functional>
#include <string_view>

#include "toolkit/draw_context.h"

namespace veloria {

struct PanelState {
    bool open = false;
    SDL_Rect rect{};  // pixels of the window; kept while maximised, for the way back
    bool dragging = false;
    bool maximised = false;
    int dragX = 0;  // from the left edge to the pointer that holds the panel
    int dragY = 0;
    SDL_Point settledIn{};  // the window's size that the place was last made to suit; 0, 0 while closed
};

struct PanelLayout {
    SDL_Rect frame;     // all of it; the whole window when maximised
    SDL_Rect title;     // the title bar
    SDL_Rect close;     // the box as drawn
    SDL_Rect maximise;  // the box as drawn
    // A press may miss the boxes by up to two pixels on their right: these reach to the edge, or to the next
    // box.
    SDL_Rect closeHit;
    SDL_Rect maximiseHit;
    SDL_Rect info;    // the "i" box of a panel that has one, as drawn and as hit
    SDL_Rect corner;  // the resize corner; empty when maximised
    SDL_Rect body;    // what the content is clipped to
};

[[nodiscard]] PanelLayout panelLayout(const PanelState& panel, int windowW, int windowH);

// The box that shows a panel's text in place of its picture.
enum class InfoBox { None, Off, On };

struct PanelStyle {
    SDL_Color titleColor{230, 230, 230, 255};  // of the title, and of the border at its own alpha
    SDL_Color closeColor{160, 40, 40, 220};
    SDL_Color maximiseColor{60, 60, 80, 220};
    SDL_Color maximiseGlyph{200, 200, 200, 255};
    int titleReserve = 44;  // pixels at the right of the title bar that the title keeps clear for boxes
    InfoBox info = InfoBox::None;
    // Controls of the panel's own in its title bar; drawn before the boxes, which lie over them.
    std::function<void(const PanelLayout&)> titleControls;
};

// What the title keeps clear where there is an "i" box.
inline constexpr int kInfoTitleReserve = 66;

// Body, title bar, border, title, the panel's own controls and the boxes. Returns the layout.
PanelLayout drawPanelFrame(const DrawContext& context, const PanelState& panel, std::string_view title,
                           const PanelStyle& style);

// Three strokes in the resize corner, over the content; nothing when maximised.
void drawPanelGrip(const DrawContext& context, const PanelState& panel);

// A closed panel draws nothing. An open one: the frame, then `content` clipped to the body, then the grip.
// The earlier clip is back afterwards, whatever `content` set.
void drawPanel(const DrawContext& context, const PanelState& panel, std::string_view title,
               const PanelStyle& style, const std::function<void(const PanelLayout&)>& content);

// A box with a white "X".
void drawCloseBox(const DrawContext& context, const SDL_Rect& box, SDL_Color color);

}  // namespace veloria
