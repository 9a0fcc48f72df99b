// What every view and panel gets to draw with.
#pragma once

#include <SDL.h>

#include <cstdint>

#include "toolkit/fonts.h"
#include "toolkit/theme.h"

namespace veloria {

struct TextCache;

// Filled anew at the head of each frame; owns nothing. Main thread.
struct DrawContext {
    SDL_Renderer* renderer = nullptr;
    const Fonts* fonts = nullptr;
    const Theme* theme = nullptr;
    TextCache* textCache = nullptr;
    int mouseX = 0;  // pixels of the window
    int mouseY = 0;
    int windowW = 0;  // pixels
    int windowH = 0;
    std::uint32_t ticks = 0;  // ms, the time of this frame
};

}  // namespace veloria
