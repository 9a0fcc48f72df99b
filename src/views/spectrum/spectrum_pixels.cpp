#include "views/spectrum/spectrum_pixels.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace veloria {

namespace {

constexpr int kBandLines = 32;  // so many lines of a panel stay in the processor's near memory

// A channel while it is drawn on, in 16 bits: the compiler then takes two pixels at a time.
using Lane = std::uint16_t;
constexpr int kLanes = 4;  // of a pixel: blue, green, red, alpha

// Three channels in one number, blue lowest: room for the sum of all glows, 8000 of at most 90 steps.
using Light = std::uint64_t;
constexpr int kLightBits = 21;
constexpr Light kLightChannel = (Light{1} << kLightBits) - 1;

unsigned premultiplied(Uint8 channel, Uint8 alpha) {
    return unsigned{channel} * alpha / 255;
}

// For each amount from 0 to 254 that is kept of what lies below: to multiply by this number and drop 16 bits
// is to multiply by keep / 255 and cut.
constexpr std::array<Lane, 255> kFactors = [] {
    std::array<Lane, 255> factors{};
    for (std::uint32_t keep = 0; keep < 255; ++keep)
        factors[keep] = static_cast<Lane>(((keep << 16) + 254) / 255);
    return factors;
}();
constexpr bool factorsCutRight() {
    for (std::uint32_t keep = 0; keep < 255; ++keep) {
        for (std::uint32_t value = 0; value < 256; ++value) {
            if (value * kFactors[keep] >> 16 != value * keep / 255) return false;
        }
    }
    return true;
}
static_assert(factorsCutRight());

// Two pixels of a colour, ready to be laid over or added.
using Pair = std::array<Lane, 2 * kLanes>;
Pair pairOf(SDL_Color color, Uint8 alphaLane) {
    Pair pair{};
    for (std::size_t i = 0; i < pair.size(); i += kLanes) {
        pair[i] = static_cast<Lane>(premultiplied(color.b, color.a));
        pair[i + 1] = static_cast<Lane>(premultiplied(color.g, color.a));
        pair[i + 2] = static_cast<Lane>(premultiplied(color.r, color.a));
        pair[i + 3] = alphaLane;
    }
    return pair;
}

struct Over {
    Pair source;
    Lane factor;

    [[nodiscard]] Lane operator()(Lane below, std::size_t lane) const {
        return static_cast<Lane>((std::uint32_t{below} * factor >> 16) + source[lane]);
    }
};

struct Added {
    Pair light;

    [[nodiscard]] Lane operator()(Lane below, std::size_t lane) const {
        return std::min<Lane>(static_cast<Lane>(below + light[lane]), 255);
    }
};

// Some lines of the picture as wide as its area.
struct Band {
    SDL_Rect rect;
    Lane* lanes;

    [[nodiscard]] Lane* at(int x, int y) const {
        return lanes + (static_cast<std::ptrdiff_t>(y - rect.y) * rect.w + (x - rect.x)) * kLanes;
    }
};

template <typename Change>
void changeRect(const Band& band, const SDL_Rect& rect, Change change) {
    SDL_Rect seen{};
    if (SDL_IntersectRect(&rect, &band.rect, &seen) == SDL_FALSE) return;
    const std::ptrdiff_t pitch = std::ptrdiff_t{band.rect.w} * kLanes;
    const std::ptrdiff_t width = std::ptrdiff_t{seen.w} * kLanes;
    Lane* line = band.at(seen.x, seen.y);
    for (int i = 0; i < seen.h; ++i, line += pitch) {
        // Of an odd width the last pair reaches a pixel too far: that one is put back.
        std::array<Lane, kLanes> next;
        std::copy_n(line + width, kLanes, next.begin());
        for (std::ptrdiff_t pair = 0; pair < width; pair += 2 * kLanes) {
            for (std::ptrdiff_t lane = 0; lane < 2 * kLanes; ++lane)
                line[pair + lane] = change(line[pair + lane], static_cast<std::size_t>(lane));
        }
        std::copy_n(next.begin(), kLanes, line + width);
    }
}

void blendRect(const Band& band, const SDL_Rect& rect, SDL_Color color) {
    if (color.a == 0) return;
    changeRect(band, rect, Over{pairOf(color, color.a), kFactors[255u - color.a]});
}

void blendColumn(const Band& band, const SurfaceColumn& column) {
    const SDL_Rect& rect = column.rect;
    if (rect.y >= band.rect.y + band.rect.h || rect.y + rect.h <= band.rect.y) return;
    blendRect(band, rect, column.color);
    if (rect.y + column.highlights > band.rect.y)
        blendRect(band, {rect.x, rect.y, rect.w, column.highlights}, highlightColor(column.color));
    if (column.shaded) blendRect(band, {rect.x + rect.w - 1, rect.y, 1, rect.h}, shadeColor(column.color));
}

void blendRows(const Band& band, const std::vector<SurfaceRow>& rows) {
    for (const SurfaceRow& row : rows) {
        for (const SurfaceColumn& column : row.columns)
            blendColumn(band, column);
        if (row.line.rect.h > 0) blendRect(band, row.line.rect, row.line.color);
    }
}

void addCrests(const Band& band, const std::vector<TintedRect>& crest) {
    for (const TintedRect& shape : crest)
        changeRect(band, shape.rect, Added{pairOf(shape.color, 0)});
}

Light lightOf(SDL_Color color) {
    return Light{premultiplied(color.b, color.a)} | Light{premultiplied(color.g, color.a)} << kLightBits |
           Light{premultiplied(color.r, color.a)} << 2 * kLightBits;
}

void addLight(Light light, Lane* pixel) {
    for (int channel = 0; channel < 3; ++channel) {
        const Light sum = pixel[channel] + (light >> channel * kLightBits & kLightChannel);
        pixel[channel] = static_cast<Lane>(std::min<Light>(sum, 255));
    }
}

// Puts the upper and lower edges of all glows on the lines where they take effect: 2 * i is the upper edge of
// the glow i, 2 * i + 1 the line below its lower one.
void sortGlowEdges(const std::vector<TintedRect>& glow, const SDL_Rect& area, SpectrumScratch& scratch) {
    scratch.firstEdge.assign(static_cast<std::size_t>(area.h), -1);
    scratch.nextEdge.resize(glow.size() * 2);
    const auto put = [&](std::size_t edge, int y) {
        int& first = scratch.firstEdge[static_cast<std::size_t>(y - area.y)];
        scratch.nextEdge[edge] = first;
        first = static_cast<int>(edge);
    };
    for (std::size_t i = 0; i < glow.size(); ++i) {
        SDL_Rect seen{};
        if (SDL_IntersectRect(&glow[i].rect, &area, &seen) == SDL_FALSE) continue;
        put(2 * i, seen.y);
        if (seen.y + seen.h < area.y + area.h) put(2 * i + 1, seen.y + seen.h);
    }
}

// Brings the changes from pixel to pixel up to date for a line.
void takeGlowEdges(const std::vector<TintedRect>& glow, const SDL_Rect& area, int y,
                   SpectrumScratch& scratch) {
    const auto change = [&](int x) -> Light& {
        return scratch.changes[static_cast<std::size_t>(x - area.x)];
    };
    int edge = scratch.firstEdge[static_cast<std::size_t>(y - area.y)];
    for (; edge >= 0; edge = scratch.nextEdge[static_cast<std::size_t>(edge)]) {
        const TintedRect& shape = glow[static_cast<std::size_t>(edge) / 2];
        const Light light = lightOf(shape.color);
        const Light rise = edge % 2 == 0 ? light : 0 - light;
        change(std::max(shape.rect.x, area.x)) += rise;
        change(std::min(shape.rect.x + shape.rect.w, area.x + area.w)) -= rise;
    }
}

// Lights only ever add up, and stop at white: so the sum of all may be added at once.
void addGlow(const Band& band, const std::vector<TintedRect>& glow, const SDL_Rect& area,
             SpectrumScratch& scratch) {
    for (int y = band.rect.y; y < band.rect.y + band.rect.h; ++y) {
        takeGlowEdges(glow, area, y, scratch);
        Lane* lanes = band.at(area.x, y);
        Light light = 0;
        for (int i = 0; i < area.w; ++i, lanes += kLanes) {
            light += scratch.changes[static_cast<std::size_t>(i)];
            if (light != 0) addLight(light, lanes);
        }
    }
}

std::uint8_t* lineOf(const PixelArea& area, int y) {
    return area.pixels + static_cast<std::ptrdiff_t>(y - area.rect.y) * area.pitch;
}

void blendBand(const SpectrumShapes& shapes, const PixelArea& area, int top, SpectrumScratch& scratch) {
    const int height = std::min(kBandLines, area.rect.y + area.rect.h - top);
    const std::ptrdiff_t bytes = std::ptrdiff_t{area.rect.w} * kLanes;
    const Band band{{area.rect.x, top, area.rect.w, height}, scratch.band.data()};
    for (int y = top; y < top + height; ++y)
        std::copy_n(lineOf(area, y), bytes, band.at(area.rect.x, y));
    addGlow(band, shapes.glow, area.rect, scratch);
    blendRows(band, shapes.rows);
    addCrests(band, shapes.crest);
    for (int y = top; y < top + height; ++y) {
        const Lane* lanes = band.at(area.rect.x, y);
        std::transform(lanes, lanes + bytes, lineOf(area, y),
                       [](Lane lane) { return static_cast<std::uint8_t>(lane); });
    }
}

}  // namespace

SDL_Rect spectrumReach(const SpectrumShapes& shapes) {
    SDL_Rect reach{};
    const auto include = [&](const SDL_Rect& rect) { SDL_UnionRect(&reach, &rect, &reach); };
    for (const TintedRect& shape : shapes.glow)
        include(shape.rect);
    for (const SurfaceRow& row : shapes.rows) {
        for (const SurfaceColumn& column : row.columns)
            include(column.rect);
        include(row.line.rect);
    }
    for (const TintedRect& shape : shapes.crest)
        include(shape.rect);
    return reach;
}

void blendSpectrum(const SpectrumShapes& shapes, const PixelArea& area, SpectrumScratch& scratch) {
    const auto width = static_cast<std::size_t>(area.rect.w);
    sortGlowEdges(shapes.glow, area.rect, scratch);
    scratch.changes.assign(width + 1, 0);
    // And one pixel behind the last, see changeRect.
    scratch.band.resize((width * std::size_t{kBandLines} + 1) * kLanes);
    for (int top = area.rect.y; top < area.rect.y + area.rect.h; top += kBandLines)
        blendBand(shapes, area, top, scratch);
}

}  // namespace veloria
