// Pages of fixed text on the number system behind the table, with a scroll of their own.
#pragma once

#include <SDL.h>

#include <cstdint>
#include <span>

#include "toolkit/draw_context.h"
#include "toolkit/scrolled_line.h"

namespace veloria {

// What a line is on its page; it gives the line its colour.
enum class LineRole { Heading, Body, Dim, Data, Highlight, Reflection, Warning };

// A line, or a gap between two lines.
struct PageEntry {
    const char* text = nullptr;  // UTF-8; null for a gap
    LineRole role = LineRole::Body;
    int gap = 0;  // pixels, of a gap only
};

[[nodiscard]] constexpr PageEntry pageLine(LineRole role, const char* text) {
    return {text, role, 0};
}
[[nodiscard]] constexpr PageEntry pageGap(int pixels) {
    return {nullptr, LineRole::Body, pixels};
}

inline constexpr SDL_Color kPageHeading{255, 215, 80, 255};

struct ResearchPage {
    std::span<const PageEntry> entries;
    SDL_Color heading = kPageHeading;
};

// Where one showing of a page stands. Two places that show pages at the same time have one each.
struct PageScroll {
    std::int32_t researchScroll = 0;     // pixels, 0 to researchScrollMax
    std::int32_t researchScrollMax = 0;  // pixels; set when the page is drawn
};

// The entries one under the other from the cursor on. What is out of sight keeps its place and is not drawn;
// nothing is clipped. Main thread, as all below.
void drawPageEntries(const DrawContext& context, ScrolledCursor& cursor, std::span<const PageEntry> entries,
                     SDL_Color heading);

// The page clipped to `body`, its lines from x = `left` on (pixels of the window). Finds researchScrollMax by
// the body's height first, and brings the scroll back to it where the page has become shorter than it was.
void drawResearchPage(const DrawContext& context, const SDL_Rect& body, int left, const ResearchPage& page,
                      PageScroll& scroll);

// The wheel over a page, in notches, positive away from the user.
void scrollResearchPage(PageScroll& scroll, int wheelY);

}  // namespace veloria
