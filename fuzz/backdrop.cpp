// The backdrop's picture: whatever the file, it is one that its bytes and the bounds allow, or none.
#include <SDL.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "views/scene/vitruvian_assets.h"

namespace {

constexpr Sint64 kMostPixels = Sint64{1} << 24;

void require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    SDL_Surface* surface = veloria::readBackdrop(std::span<const std::uint8_t>(data, size));
    if (surface == nullptr) return 0;
    require(surface->w > 0 && surface->h > 0 && Sint64{surface->w} * surface->h <= kMostPixels);
    // Every pixel is looked at, as an upload would.
    SDL_Surface* copy = SDL_ConvertSurfaceFormat(surface, SDL_PIXELFORMAT_ARGB8888, 0);
    require(copy == nullptr || (copy->w == surface->w && copy->h == surface->h));
    SDL_FreeSurface(copy);
    SDL_FreeSurface(surface);
    return 0;
}
