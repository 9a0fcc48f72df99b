// The clips of the timeline as they were drawn last. Where the processor draws, thousands of see-through
// clips take most of a frame's time, though they seldom change: a picture that stood still is laid down again
// instead.
#pragma once

#include <SDL.h>
#include <SDL_ttf.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace veloria {

// All that the drawing of one clip takes from it, in pixels of the window.
struct ClipShape {
    int x = 0;  // the body, cut to the timeline
    int y = 0;
    int w = 0;  // 0 for a clip so narrow that it is a mere line
    int h = 0;
    std::array<Uint8, 4> colour{};  // red, green, blue, alpha
    bool selected = false;
    int level = 0;       // length of the level bar; 0 for none
    std::string label;   // empty where there is no room for it
    std::string detail;  // the same
    bool operator==(const ClipShape&) const = default;
};

// Everything that the picture of the clips, and of the rows, the grid and the range beneath them depends on.
struct ClipScene {
    std::array<int, 4> place{};  // x, y, w, h of the picture: the rows as far as they are seen
    int rowH = 0;
    int scrollY = 0;
    TTF_Font* font = nullptr;
    std::array<double, 2> view{};   // s, start and span: where the grid's lines stand
    std::array<double, 2> range{};  // s, from and to; both 0 while none is shown
    std::vector<ClipShape> shapes;  // in the order of drawing
    bool operator==(const ClipScene&) const = default;
};

struct KeptClips {
    ClipScene scene;                    // of the last frame
    std::vector<std::uint32_t> pixels;  // of its place, ARGB8888; empty unless the scene stood still
};

}  // namespace veloria
