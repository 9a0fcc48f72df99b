#include "views/shared/research_page.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "toolkit/primitives.h"

namespace veloria {

namespace {

constexpr int kLineHeight = 15;
constexpr int kTopMargin = 14;
constexpr int kFootMargin = 20;
constexpr int kWheelStep = 30;  // pixels a notch

// By LineRole from Body on; the heading's colour is the page's own.
constexpr std::array<SDL_Color, 6> kRoleColours = {{
    {200, 200, 220, 255},
    {160, 155, 180, 200},
    {140, 220, 180, 255},
    {255, 180, 60, 255},
    {200, 140, 220, 255},
    {255, 100, 80, 255},
}};

SDL_Color lineColour(LineRole role, SDL_Color heading) {
    if (role == LineRole::Heading) return heading;
    return kRoleColours[static_cast<std::size_t>(role) - 1];
}

int pageHeight(std::span<const PageEntry> entries) {
    int height = 0;
    for (const PageEntry& entry : entries)
        height += entry.text != nullptr ? kLineHeight : entry.gap;
    return height;
}

}  // namespace

void drawPageEntries(const DrawContext& context, ScrolledCursor& cursor, std::span<const PageEntry> entries,
                     SDL_Color heading) {
    for (const PageEntry& entry : entries) {
        if (entry.text == nullptr) {
            cursor.y += entry.gap;
        } else {
            DrawScrolledLine(context, cursor, entry.text, lineColour(entry.role, heading));
        }
    }
}

void drawResearchPage(const DrawContext& context, const SDL_Rect& body, int left, const ResearchPage& page,
                      PageScroll& scroll) {
    const int whole = kTopMargin + pageHeight(page.entries) + kFootMargin;
    scroll.researchScrollMax = std::max(whole - std::max(body.h, 0), 0);
    scroll.researchScroll = std::clamp(scroll.researchScroll, 0, scroll.researchScrollMax);
    if (body.w <= 0 || body.h <= 0) return;
    const ClipGuard clip(context.renderer, body);
    ScrolledCursor cursor{body, left, body.y - scroll.researchScroll + kTopMargin, kLineHeight,
                          context.fonts->fontLabel};
    drawPageEntries(context, cursor, page.entries, page.heading);
}

void scrollResearchPage(PageScroll& scroll, int wheelY) {
    const std::int64_t wanted = std::int64_t{scroll.researchScroll} - std::int64_t{wheelY} * kWheelStep;
    const std::int64_t farthest = std::max(scroll.researchScrollMax, 0);
    scroll.researchScroll = static_cast<std::int32_t>(std::clamp<std::int64_t>(wanted, 0, farthest));
}

}  // namespace veloria
