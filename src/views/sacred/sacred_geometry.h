// The enneagram whose points are joined by the digits of what sounds. Main thread.
#pragma once

#include <SDL.h>

#include <array>
#include <optional>
#include <span>

#include "toolkit/draw_context.h"
#include "views/shared/coloured_notes.h"

namespace veloria {

inline constexpr int kSacredPointCount = 9;

// All in pixels.
struct SacredLayout {
    SDL_FPoint centre{};
    float radius = 0;                                    // of the circle that the points stand on
    std::array<SDL_FPoint, kSacredPointCount> points{};  // point 0, the digit 9, on top, then clockwise
    std::array<SDL_Point, kSacredPointCount> digits{};   // the middle of each point's digit
    SDL_Rect backdrop{};                                 // the square behind the figure
};
[[nodiscard]] SacredLayout sacredLayout(const SDL_Rect& body);

// A point of the figure's circle; `ninths` counts clockwise from the top, 40 degrees each.
[[nodiscard]] SDL_FPoint sacredPointAt(const SacredLayout& layout, float ninths);

// What a note joins.
struct NoteTriangle {
    int cornerA = 0;  // points, 0 to 8
    int cornerB = 0;
    float cornerC = 0;  // ninths of the circle, 0 to under 9
};
// By the last three whole digits and the first decimal of a frequency in Hz; nothing for one that is not
// above 0 or too large to be multiplied by 10.
[[nodiscard]] std::optional<NoteTriangle> noteTriangle(float frequency);

// Backdrop, figure and the notes' triangles over it. `body` is the clip already. The backdrop may be null,
// and is drawn with the alpha that it has.
void drawSacredGeometry(const DrawContext& context, const SDL_Rect& body, std::span<const ColouredNote> notes,
                        float time, SDL_Texture* backdrop);

}  // namespace veloria
