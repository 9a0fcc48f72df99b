// The twelve Solfeggio nodes as the views name and colour them.
#pragma once

#include <SDL.h>

#include <array>

namespace veloria {

struct SolfeggioNode {
    const char* letter;  // Hebrew, UTF-8
    const char* name;    // of the letter
    int ebced;           // the letter's value
    const char* centre;  // the place in the body, below it or above it
};

// In the order of solfeggio12.
inline constexpr std::array<SolfeggioNode, 12> solfeggioNodes = {{
    {"ה", "He", 5, "Earth Star"},
    {"ו", "Vav", 6, "Earth Gate"},
    {"ז", "Zayin", 7, "Root Base"},
    {"ח", "Chet", 8, "Sacral"},
    {"ט", "Tet", 9, "Solar Plexus"},
    {"י", "Yud", 10, "Third Eye"},
    {"ל", "Lamed", 30, "Throat Core"},
    {"נ", "Nun", 50, "Heart Core"},
    {"ס", "Samech", 60, "Solar Core"},
    {"ע", "Ayin", 70, "Galactic 1"},
    {"צ", "Tsadi", 90, "Galactic 2"},
    {"ק", "Qof", 100, "Soul Star"},
}};

// 417 Hz stands alone between the two realms.
inline constexpr int kTransitNode = 6;

[[nodiscard]] constexpr const char* realmName(int index) {
    if (index < kTransitNode) return "Earthly";
    return index == kTransitNode ? "Transit" : "Galactic";
}

[[nodiscard]] constexpr SDL_Color realmColour(int index) {
    if (index < kTransitNode) return {220, 175, 55, 255};
    return index == kTransitNode ? SDL_Color{55, 210, 155, 255} : SDL_Color{155, 95, 220, 255};
}

}  // namespace veloria
