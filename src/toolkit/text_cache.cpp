#include "toolkit/text_cache.h"

#include <functional>
#include <utility>

namespace veloria {

namespace {

// More than one, so that the stale ones become fewer; few, so that a panel's closing costs no frame.
constexpr int kStalePerMiss = 4;

// The start of a `TextEntry`: its text is rendered, nothing is kept yet. A null texture on failure.
TextEntry renderText(SDL_Renderer* renderer, const TextKey& key) {
    TextEntry entry;
    entry.text = std::string(key.text);
    SDL_Surface* surface = key.utf8 ? TTF_RenderUTF8_Blended(key.font, entry.text.c_str(), key.color)
                                    : TTF_RenderText_Blended(key.font, entry.text.c_str(), key.color);
    if (surface == nullptr) return entry;
    entry.texture = SDL_CreateTextureFromSurface(renderer, surface);
    entry.w = surface->w;
    entry.h = surface->h;
    entry.bytes =
        std::size_t{4} * static_cast<std::size_t>(surface->w) * static_cast<std::size_t>(surface->h);
    SDL_FreeSurface(surface);
    return entry;
}

RenderedText pictureOf(const TextEntry& entry) {
    return {entry.texture, entry.w, entry.h};
}

void dropUnkept(TextCache& cache) {
    if (cache.unkept != nullptr) SDL_DestroyTexture(cache.unkept);
    cache.unkept = nullptr;
}

void evictOldest(TextCache& cache) {
    const TextEntry& oldest = cache.entries.back();
    cache.index.erase(oldest.key);
    cache.bytes -= oldest.bytes;
    SDL_DestroyTexture(oldest.texture);
    cache.entries.pop_back();
    ++cache.evictions;
}

void evictStale(TextCache& cache) {
    for (int i = 0; i < kStalePerMiss && !cache.entries.empty(); ++i) {
        if (cache.frame - cache.entries.back().lastFrame <= cache.maxAgeFrames) return;
        evictOldest(cache);
    }
}

const TextEntry& keep(TextCache& cache, TextEntry&& rendered, const TextKey& key) {
    cache.entries.push_front(std::move(rendered));
    TextEntry& entry = cache.entries.front();
    entry.key = key;
    entry.key.text = entry.text;
    cache.index.emplace(entry.key, cache.entries.begin());
    cache.bytes += entry.bytes;
    while (cache.entries.size() > cache.maxCount || cache.bytes > cache.maxBytes)
        evictOldest(cache);
    return entry;
}

}  // namespace

std::size_t TextKeyHash::operator()(const TextKey& key) const {
    const std::uint64_t color = (std::uint64_t{key.color.r} << 24) | (std::uint64_t{key.color.g} << 16) |
                                (std::uint64_t{key.color.b} << 8) | key.color.a;
    // Spread by an odd constant (the golden ratio in 64 bits), so that near colours land far apart.
    const std::uint64_t spread = (color * 2 + (key.utf8 ? 1 : 0)) * 0x9E3779B97F4A7C15u;
    return std::hash<std::string_view>{}(key.text) ^ static_cast<std::size_t>(spread) ^
           (std::hash<TTF_Font*>{}(key.font) * 31);
}

bool TextKeyEqual::operator()(const TextKey& left, const TextKey& right) const {
    return left.font == right.font && left.utf8 == right.utf8 && left.color.r == right.color.r &&
           left.color.g == right.color.g && left.color.b == right.color.b && left.color.a == right.color.a &&
           left.text == right.text;
}

RenderedText renderedText(TextCache& cache, SDL_Renderer* renderer, const TextKey& key, std::uint32_t ticks) {
    if (key.font == nullptr || key.text.empty()) return {};
    if (cache.renderer != renderer) {
        clearTextCache(cache);
        cache.renderer = renderer;
    }
    if (cache.ticks != ticks) ++cache.frame;
    cache.ticks = ticks;
    dropUnkept(cache);
    const auto found = cache.index.find(key);
    if (found != cache.index.end()) {
        ++cache.hits;
        found->second->lastFrame = cache.frame;
        cache.entries.splice(cache.entries.begin(), cache.entries, found->second);
        return pictureOf(*found->second);
    }
    ++cache.misses;
    evictStale(cache);
    TextEntry rendered = renderText(renderer, key);
    if (rendered.texture == nullptr) return {};
    if (cache.maxCount == 0 || rendered.bytes > cache.maxBytes) {
        cache.unkept = rendered.texture;
        return pictureOf(rendered);
    }
    rendered.lastFrame = cache.frame;
    return pictureOf(keep(cache, std::move(rendered), key));
}

void clearTextCache(TextCache& cache) {
    dropUnkept(cache);
    for (const TextEntry& entry : cache.entries)
        SDL_DestroyTexture(entry.texture);
    cache.index.clear();
    cache.entries.clear();
    cache.bytes = 0;
    cache.renderer = nullptr;
}

}  // namespace veloria
