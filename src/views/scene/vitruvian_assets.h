// The two files that a user may lay beside the program: a drawing behind the geometry views, and a figure.
// Main thread.
#pragma once

#include <SDL.h>

#include <cstdint>
#include <span>

#include "views/scene/geometry/wire_model.h"

namespace veloria {

// How faint the drawing is. A view that changes the texture's alpha sets it back to this.
inline constexpr Uint8 kBackdropAlpha = 110;

struct VitruvianAssets {
    bool assetsLoaded = false;  // they were looked for, found or not
    SDL_Texture* bitmapTexture = nullptr;
    WireModel wireModel;
};

// In its first call, reads "vitruvian.bmp" and "Vitruvian.stl" from the working directory; afterwards does
// nothing. What is missing or damaged stays empty, without a word.
void loadAssetsOnce(VitruvianAssets& assets, SDL_Renderer* renderer);

// Before the renderer is destroyed, and when it has lost its textures (SDL_RENDER_DEVICE_RESET): the next
// loadAssetsOnce reads anew.
void freeAssets(VitruvianAssets& assets);

// The picture in the bytes of a BMP file. Null when it is damaged, or above 8192 pixels a side or 16 million
// in all; nothing larger than the picture that the bytes can hold is asked of memory. The caller frees it.
[[nodiscard]] SDL_Surface* readBackdrop(std::span<const std::uint8_t> file);

}  // namespace veloria
