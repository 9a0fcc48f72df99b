#include "toolkit/scrolled_line.h"

#include "toolkit/text.h"

namespace veloria {

namespace {

// Enough for the tallest line to stick into the clip from above and below.
constexpr int kAboveClip = 20;
constexpr int kBelowClip = 5;

}  // namespace

void DrawScrolledLine(const DrawContext& context, ScrolledCursor& cursor, std::string_view text,
                      SDL_Color color) {
    const int bottom = cursor.clip.y + cursor.clip.h;
    if (cursor.y > cursor.clip.y - kAboveClip && cursor.y < bottom + kBelowClip) {
        DrawTextUtf8(context, text, cursor.x, cursor.y, cursor.font, color);
    }
    cursor.y += cursor.lineHeight;
}

}  // namespace veloria
