// Is this text to be seen at this place, and nothing else there?
#pragma once

#include <SDL_ttf.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/ui/offscreen.h"

namespace veloria::test {

// A picture in one colour.
inline Picture plain(const Picture& like, SDL_Color color) {
    return {like.w, like.h, std::vector<SDL_Color>(like.pixels.size(), color)};
}

// Compares each pixel of the text, rendered here anew, laid over `below`; and the six columns behind it, so
// that a longer text that begins like this one is told apart.
// Columns from `rightLimit` on are not looked at: something else is drawn over them.
inline testing::AssertionResult isText(const Picture& seen, const Picture& below, const std::string& text,
                                       int x, int y, TTF_Font* font, SDL_Color color,
                                       int rightLimit = std::numeric_limits<int>::max()) {
    constexpr int kBehind = 6;
    constexpr int kTolerance = 4;  // the renderer rounds down in each of its steps
    if (font == nullptr) return testing::AssertionFailure() << "no font";
    SDL_Surface* rendered = TTF_RenderUTF8_Blended(font, text.c_str(), color);
    if (rendered == nullptr) return testing::AssertionFailure() << "cannot render " << text;
    SDL_Surface* surface = SDL_ConvertSurfaceFormat(rendered, SDL_PIXELFORMAT_RGBA32, 0);
    SDL_FreeSurface(rendered);
    int wrong = 0;
    int inked = 0;
    for (int row = 0; row < surface->h; ++row) {
        const auto* line = static_cast<const Uint8*>(surface->pixels) + row * surface->pitch;
        for (int column = 0; column < surface->w + kBehind && x + column < rightLimit; ++column) {
            const Uint8* pixel = line + 4 * column;
            const bool inside = column < surface->w;
            const SDL_Color ink =
                inside ? SDL_Color{pixel[0], pixel[1], pixel[2], pixel[3]} : SDL_Color{0, 0, 0, 0};
            inked += ink.a > color.a / 2 ? 1 : 0;
            const SDL_Color wanted = over(ink, below.at(x + column, y + row));
            wrong += isColor(seen.at(x + column, y + row), wanted, kTolerance) ? 0 : 1;
        }
    }
    SDL_FreeSurface(surface);
    if (wrong == 0 && inked > 0) return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "\"" << text << "\" at " << x << ", " << y << ": " << wrong << " pixels differ";
}

// The same over a plain ground.
inline testing::AssertionResult isText(const Picture& seen, SDL_Color below, const std::string& text, int x,
                                       int y, TTF_Font* font, SDL_Color color) {
    return isText(seen, plain(seen, below), text, x, y, font, color);
}

// Where the text stands when it is centred in `area`.
inline SDL_Point centredPlace(const std::string& text, const SDL_Rect& area, TTF_Font* font) {
    SDL_Point size{0, 0};
    TTF_SizeUTF8(font, text.c_str(), &size.x, &size.y);
    return {area.x + (area.w - size.x) / 2, area.y + (area.h - size.y) / 2};
}

// True when every pixel of the area is of the colour.
inline testing::AssertionResult isFilled(const Picture& seen, const SDL_Rect& area, SDL_Color wanted) {
    for (int y = area.y; y < area.y + area.h; ++y) {
        for (int x = area.x; x < area.x + area.w; ++x) {
            const testing::AssertionResult result = isColor(seen.at(x, y), wanted);
            if (!result) return testing::AssertionFailure() << x << ", " << y << ": " << result.message();
        }
    }
    return testing::AssertionSuccess();
}

}  // namespace veloria::test
