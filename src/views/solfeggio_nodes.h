// The twelve Solfeggio nodes as the views name and colour them.
#pragma once

#include <SDL.h>

#include <array>

namespace veloria {

struct SolfeggioNode {
    const char* letter;  // Hebrew, UTF-8
    const char* name;    // of the letter
    int ebced;           // the letter's value
};

// In the order of solfeggio12.
inline constexpr std::array<SolfeggioNode, 12> solfeggioNodes = {{
    {"ה", "He", 5},
    {"ו", "Vav", 6},
    {"ז", "Zayin", 7},
    {"ח", "Chet", 8},
    {"ט", "Tet", 9},
    {"י", "Yud", 10},
    {"ל", "Lamed", 30},
    {"נ", "Nun", 50},
    {"ס", "Samech", 60},
    {"ע", "Ayin", 70},
    {"צ", "Tsadi", 90},
    {"ק", "Qof", 100},
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
