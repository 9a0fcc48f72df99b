// The Kathara system drawn flat: twelve Solfeggio nodes, nine digits, and the 162 Avatar frequencies in
// clusters on the triangles of their digits.
#pragma once

#include <SDL.h>

#include <array>
#include <span>

#include "toolkit/draw_context.h"
#include "views/scene/geometry/kathara_geometry.h"

namespace veloria {

inline constexpr int kDigitCount = 9;
inline constexpr int kTritypeCount = 27;

// A digit of each centre. Tritype t owns the entries 3t to 3t + 2 of either Avatar table.
inline constexpr std::array<std::array<int, 3>, kTritypeCount> tritypes = {{
    {1, 2, 5}, {1, 2, 6}, {1, 2, 7}, {1, 3, 5}, {1, 3, 6}, {1, 3, 7}, {1, 4, 5}, {1, 4, 6}, {1, 4, 7},
    {2, 5, 8}, {2, 5, 9}, {2, 6, 8}, {2, 6, 9}, {2, 7, 8}, {2, 7, 9}, {3, 5, 8}, {3, 5, 9}, {3, 6, 8},
    {3, 6, 9}, {3, 7, 8}, {3, 7, 9}, {4, 5, 8}, {4, 5, 9}, {4, 6, 8}, {4, 6, 9}, {4, 7, 8}, {4, 7, 9},
}};

// The six frequencies of a tritype, in the order of the tables.
struct TritypeCluster {
    std::array<SDL_Point, 3> reflectionDots{};
    std::array<SDL_Point, 3> rotationDots{};
};

// Where all of it stands, in pixels.
struct SolfeggioGridLayout {
    SDL_Rect area{};      // nothing is drawn outside
    SDL_Rect inner{};     // less the margins
    SDL_Rect backdrop{};  // of the drawing behind; a square
    std::array<SDL_Point, kSolfeggioCount> nodes{};
    std::array<SDL_Point, kDigitCount> digits{};  // 1 to 9
    std::array<TritypeCluster, kTritypeCount> clusters{};
    std::array<SDL_Point, 3> realmLabels{};  // left upper corners: lowest, middle, uppermost
    SDL_Point reflectionKey{};               // the discs of the legend
    SDL_Point rotationKey{};
};
[[nodiscard]] SolfeggioGridLayout solfeggioGridLayout(const SDL_Rect& rect);

// `sounding` in Hz, `time` of the view clock. `backdrop` may be null; its alpha is kBackdropAlpha afterwards.
// Takes no input. Main thread.
void drawSolfeggioGrid(const DrawContext& context, const SDL_Rect& rect, std::span<const float> sounding,
                       float time, SDL_Texture* backdrop);

}  // namespace veloria
