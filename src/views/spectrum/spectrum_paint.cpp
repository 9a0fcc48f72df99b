#include "views/spectrum/spectrum_paint.h"

#include <cstdint>
#include <vector>

#include "toolkit/primitives.h"

namespace veloria {

namespace {

void fillAll(SDL_Renderer* renderer, const std::vector<TintedRect>& shapes) {
    for (const TintedRect& shape : shapes)
        fillRect(renderer, shape.rect, shape.color, SDL_BLENDMODE_ADD);
}

void fillColumn(SDL_Renderer* renderer, const SurfaceColumn& column) {
    const SDL_Rect& rect = column.rect;
    fillRect(renderer, rect, column.color);
    fillRect(renderer, {rect.x, rect.y, rect.w, column.highlights}, highlightColor(column.color));
    if (column.shaded) fillRect(renderer, {rect.x + rect.w - 1, rect.y, 1, rect.h}, shadeColor(column.color));
}

bool isPlainSoftwareRenderer(SDL_Renderer* renderer) {
    SDL_RendererInfo info{};
    if (SDL_GetRendererInfo(renderer, &info) != 0 || (info.flags & SDL_RENDERER_SOFTWARE) == 0) return false;
    float scaleX = 1.0f;
    float scaleY = 1.0f;
    SDL_Rect viewport{};
    SDL_RenderGetScale(renderer, &scaleX, &scaleY);
    SDL_RenderGetViewport(renderer, &viewport);
    return scaleX == 1.0f && scaleY == 1.0f && viewport.x == 0 && viewport.y == 0;
}

std::int64_t sizeOf(const SDL_Rect& rect) {
    return std::int64_t{rect.w} * rect.h;
}

// So many pixels are drawn rectangle by rectangle.
std::int64_t paintedPixels(const SpectrumShapes& shapes) {
    std::int64_t sum = 0;
    for (const TintedRect& shape : shapes.glow)
        sum += sizeOf(shape.rect);
    for (const SurfaceRow& row : shapes.rows) {
        for (const SurfaceColumn& column : row.columns)
            sum += sizeOf(column.rect);
    }
    for (const TintedRect& shape : shapes.crest)
        sum += sizeOf(shape.rect);
    return sum;
}

// The part of the picture that drawing can change; empty if there is none.
SDL_Rect paintedArea(SDL_Renderer* renderer, const SpectrumShapes& shapes) {
    SDL_Rect area{};
    SDL_RenderGetViewport(renderer, &area);
    if (SDL_RenderIsClipEnabled(renderer) == SDL_TRUE) {
        SDL_Rect clip{};
        SDL_RenderGetClipRect(renderer, &clip);
        if (SDL_IntersectRect(&area, &clip, &area) == SDL_FALSE) return {};
    }
    const SDL_Rect reach = spectrumReach(shapes);
    if (SDL_IntersectRect(&area, &reach, &area) == SDL_FALSE) return {};
    return area;
}

// The picture below is read into `texture`, drawn on and left there.
bool blendInto(SDL_Texture* texture, SDL_Renderer* renderer, const SDL_Rect& area,
               const SpectrumShapes& shapes, SpectrumScratch& scratch) {
    void* pixels = nullptr;
    int pitch = 0;
    if (SDL_LockTexture(texture, nullptr, &pixels, &pitch) != 0) return false;
    const bool read = SDL_RenderReadPixels(renderer, &area, SDL_PIXELFORMAT_BGRA32, pixels, pitch) == 0;
    if (read) blendSpectrum(shapes, {area, static_cast<std::uint8_t*>(pixels), pitch}, scratch);
    SDL_UnlockTexture(texture);
    return read;
}

}  // namespace

void paintSpectrumShapes(SDL_Renderer* renderer, const SpectrumShapes& shapes) {
    fillAll(renderer, shapes.glow);
    for (const SurfaceRow& row : shapes.rows) {
        for (const SurfaceColumn& column : row.columns)
            fillColumn(renderer, column);
        fillRect(renderer, row.line.rect, row.line.color);
    }
    fillAll(renderer, shapes.crest);
}

bool paintSpectrumPixels(SDL_Renderer* renderer, const SpectrumShapes& shapes, SpectrumScratch& scratch) {
    if (!isPlainSoftwareRenderer(renderer)) return false;
    const SDL_Rect area = paintedArea(renderer, shapes);
    if (area.w <= 0 || area.h <= 0) return true;
    // A texture of its own for each picture costs little here, and none is left behind when the renderer
    // goes.
    SDL_Texture* texture =
        SDL_CreateTexture(renderer, SDL_PIXELFORMAT_BGRA32, SDL_TEXTUREACCESS_STREAMING, area.w, area.h);
    if (texture == nullptr) return false;
    SDL_SetTextureBlendMode(texture, SDL_BLENDMODE_NONE);
    const bool drawn = blendInto(texture, renderer, area, shapes, scratch) &&
                       SDL_RenderCopy(renderer, texture, nullptr, &area) == 0;
    SDL_DestroyTexture(texture);
    return drawn;
}

void paintSpectrum(SDL_Renderer* renderer, const SpectrumShapes& shapes, SpectrumScratch& scratch) {
    // A few notes in a large panel: to take the picture out and back costs more than to draw.
    const bool few = paintedPixels(shapes) < sizeOf(spectrumReach(shapes));
    if (few || !paintSpectrumPixels(renderer, shapes, scratch)) paintSpectrumShapes(renderer, shapes);
}

}  // namespace veloria
