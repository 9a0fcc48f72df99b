// Rendered text, kept from frame to frame. Main thread.
#pragma once

#include <SDL.h>
#include <SDL_ttf.h>

#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>

namespace veloria {

// What one picture of a text depends on. The colour belongs to it: a white picture with colour and alpha
// modulation differs from text that was rendered in its colour by up to two steps a channel, since the
// software renderer rounds the two in different ways, and takes about nine times as long to copy.
struct TextKey {
    TTF_Font* font = nullptr;
    bool utf8 = false;
    SDL_Color color{};
    std::string_view text;
};

struct TextKeyHash {
    std::size_t operator()(const TextKey& key) const;
};

struct TextKeyEqual {
    bool operator()(const TextKey& left, const TextKey& right) const;
};

struct TextEntry {
    TextKey key;       // its text is the one below
    std::string text;  // never changed, so that the key's view of it stays good
    SDL_Texture* texture = nullptr;
    int w = 0;  // pixels
    int h = 0;
    std::size_t bytes = 0;        // of the picture, four a pixel
    std::uint64_t lastFrame = 0;  // in which it was drawn
};

// All the rendered text of one renderer, the least recently used thrown away when a bound is passed. Whoever
// owns it calls clearTextCache before the renderer is destroyed, before a font is closed and after the
// renderer has lost its textures (SDL_RENDER_DEVICE_RESET). It has no destructor of its own for the same
// reason: a renderer takes its textures with it, and there may be none left to free.
struct TextCache {
    TextCache() = default;
    TextCache(const TextCache&) = delete;
    TextCache& operator=(const TextCache&) = delete;

    std::size_t maxCount = 4096;                   // entries; 0 keeps nothing, every text is rendered anew
    std::size_t maxBytes = std::size_t{32} << 20;  // of all pictures; a larger text is never kept

    // What was not drawn for so many frames may go before a bound is reached. The software renderer looks
    // through all newer pictures when it frees one, so a figure that changes in every frame must not wait
    // until thousands of others stand before it.
    std::uint64_t maxAgeFrames = 8;

    SDL_Renderer* renderer = nullptr;  // whose textures these are
    std::list<TextEntry> entries;      // the most recently used first
    std::unordered_map<TextKey, std::list<TextEntry>::iterator, TextKeyHash, TextKeyEqual> index;
    std::size_t bytes = 0;          // of all entries
    SDL_Texture* unkept = nullptr;  // the last text, if it was too large to keep

    std::uint64_t frame = 0;  // counts up whenever the ticks are others than before
    std::uint32_t ticks = 0;  // ms

    std::uint64_t hits = 0;
    std::uint64_t misses = 0;
    std::uint64_t evictions = 0;
};

struct RenderedText {
    SDL_Texture* texture = nullptr;  // good until the next call; null when there is nothing to draw
    int w = 0;                       // pixels
    int h = 0;
};

// The picture of the text, kept or new. Null when the font is null, the text is empty or it cannot be
// rendered. A renderer other than the last one clears the cache first; the last one must still be alive then.
// `ticks` is the time of the frame in ms.
[[nodiscard]] RenderedText renderedText(TextCache& cache, SDL_Renderer* renderer, const TextKey& key,
                                        std::uint32_t ticks);

// Frees all pictures. The renderer that made them is still alive.
void clearTextCache(TextCache& cache);

}  // namespace veloria
