#include "views/scene/vitruvian_assets.h"

#include <cstddef>
#include <cstdlib>
#include <vector>

#include "base/little_endian.h"
#include "platform/files.h"

namespace veloria {

namespace {

constexpr const char* kBitmapPath = "vitruvian.bmp";
constexpr const char* kModelPath = "Vitruvian.stl";
constexpr float kModelHalfSize = 2.0f;
constexpr float kModelFloorCut = 0.15f;  // the figure's pedestal
constexpr int kModelGridSize = 80;

// Bounds of what is worth decoding for a backdrop.
constexpr std::size_t kMostBytes = std::size_t{64} << 20;
constexpr std::int64_t kMostSide = 8192;
constexpr std::int64_t kMostPixels = std::int64_t{1} << 24;

// The heads of a BMP file, in bytes. The short one is that of the oldest files.
constexpr std::size_t kShortHead = 26;
constexpr std::size_t kLongHead = 54;
constexpr std::uint32_t kShortInfo = 12;

struct BitmapSize {
    std::int64_t w = 0;  // pixels, 0 when there is no head
    std::int64_t h = 0;
    std::int64_t bits = 0;    // of a pixel
    bool compressed = false;  // its rows may take less than their pixels' bits
};

BitmapSize bitmapSize(std::span<const std::uint8_t> file) {
    using platform::littleEndian16;
    using platform::littleEndian32;
    if (file.size() < kShortHead) return {};
    if (littleEndian32(&file[14]) == kShortInfo)
        return {littleEndian16(&file[18]), littleEndian16(&file[20]), littleEndian16(&file[24]), false};
    if (file.size() < kLongHead) return {};
    const auto side = [&](std::size_t at) {
        return static_cast<std::int64_t>(static_cast<std::int32_t>(littleEndian32(&file[at])));
    };
    const std::uint32_t compression = littleEndian32(&file[30]);
    const bool runLength = compression == 1 || compression == 2;
    // A negative height is that of a picture whose first row is its upper one.
    return {side(18), std::abs(side(22)), littleEndian16(&file[28]), runLength};
}

// SDL makes room for all that the head claims before it reads the first row.
bool isCredible(const BitmapSize& size, std::size_t fileBytes) {
    if (size.w < 1 || size.h < 1 || size.w > kMostSide || size.h > kMostSide) return false;
    if (size.w * size.h > kMostPixels) return false;
    if (size.compressed) return true;
    const std::int64_t rowBytes = (size.w * size.bits + 31) / 32 * 4;
    const std::int64_t lastRowBytes = (size.w * size.bits + 7) / 8;  // some leave out its padding
    return rowBytes * (size.h - 1) + lastRowBytes <= static_cast<std::int64_t>(fileBytes);
}

SDL_Texture* loadBitmap(SDL_Renderer* renderer) {
    std::vector<std::uint8_t> bytes;
    if (!platform::readFileStart(kBitmapPath, kMostBytes + 1, bytes)) return nullptr;
    SDL_Surface* surface = readBackdrop(bytes);
    if (surface == nullptr) return nullptr;
    SDL_Texture* texture = SDL_CreateTextureFromSurface(renderer, surface);
    SDL_FreeSurface(surface);
    if (texture == nullptr) return nullptr;
    SDL_SetTextureBlendMode(texture, SDL_BLENDMODE_BLEND);
    SDL_SetTextureAlphaMod(texture, kBackdropAlpha);
    return texture;
}

}  // namespace

void loadAssetsOnce(VitruvianAssets& assets, SDL_Renderer* renderer) {
    if (assets.assetsLoaded) return;
    assets.assetsLoaded = true;
    assets.bitmapTexture = loadBitmap(renderer);
    loadWireModel(assets.wireModel, kModelPath, kModelHalfSize, kModelFloorCut, kModelGridSize);
}

void freeAssets(VitruvianAssets& assets) {
    if (assets.bitmapTexture != nullptr) SDL_DestroyTexture(assets.bitmapTexture);
    assets = {};
}

SDL_Surface* readBackdrop(std::span<const std::uint8_t> file) {
    if (file.size() > kMostBytes || !isCredible(bitmapSize(file), file.size())) return nullptr;
    return SDL_LoadBMP_RW(SDL_RWFromConstMem(file.data(), static_cast<int>(file.size())), 1);
}

}  // namespace veloria
