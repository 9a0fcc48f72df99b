// The lines of a scrolled page, one under the other.
#pragma once

#include <string_view>

#include "toolkit/draw_context.h"

namespace veloria {

struct ScrolledCursor {
    SDL_Rect clip{};           // the visible part of the page, pixels of the window
    int x = 0;                 // left edge of the text
    int y = 0;                 // top of the next line; already less the scroll
    int lineHeight = 15;       // pixels from line to line
    TTF_Font* font = nullptr;  // null: the page keeps its layout and shows nothing
};

// Draws the UTF-8 text at the cursor if the line may be seen, and goes to the next line in any case. The
// cursor does not clip: a line at the edge is cut only by the clip that is set at the time.
void DrawScrolledLine(const DrawContext& context, ScrolledCursor& cursor, std::string_view text,
                      SDL_Color color);

}  // namespace veloria
