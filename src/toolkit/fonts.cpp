#include "toolkit/fonts.h"

#include <array>
#include <string>

#include "platform/fonts.h"

namespace veloria {

namespace {

using PathList = std::array<const char*, 3>;

constexpr std::array<const char*, 2> kSmallPaths = {"C:/Windows/Fonts/arial.ttf", "arial.ttf"};
constexpr PathList kWidePaths = {"C:/Windows/Fonts/segoeui.ttf", "C:/Windows/Fonts/times.ttf",
                                 "C:/Windows/Fonts/arial.ttf"};
constexpr std::array<const char*, 3> kWideFamilies = {"Segoe UI", "Times New Roman", "Arial"};
constexpr PathList kSplashPaths = {"C:/Windows/Fonts/consolab.ttf", "C:/Windows/Fonts/consola.ttf",
                                   "C:/Windows/Fonts/arial.ttf"};
constexpr std::array<const char*, 1> kSplashFamilies = {"Consolas"};

TTF_Font* openFont(const std::string& path, int points) {
    return path.empty() ? nullptr : TTF_OpenFont(path.c_str(), points);
}

// A file may be there and hold no font.
bool holdsFont(const std::string& path) {
    constexpr int kAnyPoints = 12;
    TTF_Font* font = openFont(path, kAnyPoints);
    if (font == nullptr) return false;
    TTF_CloseFont(font);
    return true;
}

void closeFont(TTF_Font*& font) {
    if (font != nullptr) TTF_CloseFont(font);
    font = nullptr;
}

}  // namespace

void openFonts(Fonts& fonts) {
    // Where Arial is not installed the system offers a face of the same widths, so fixed label places still
    // fit.
    const std::string small = platform::findFont({kSmallPaths, {}, "Arial", false, holdsFont});
    fonts.fontRow = openFont(small, 12);
    fonts.fontTiny = openFont(small, 8);
    fonts.fontHeading = openFont(small, 14);
    fonts.fontLabel = openFont(small, 10);
    fonts.fontTab = openFont(small, 12);
    // The wide font draws Hebrew letters; DejaVu Sans holds them where none of the named faces is installed.
    fonts.fontWide =
        openFont(platform::findFont({kWidePaths, kWideFamilies, "DejaVu Sans", false, holdsFont}), 16);
    fonts.fontSplash =
        openFont(platform::findFont({kSplashPaths, kSplashFamilies, "monospace", true, holdsFont}), 40);
}

void closeFonts(Fonts& fonts) {
    closeFont(fonts.fontRow);
    closeFont(fonts.fontTiny);
    closeFont(fonts.fontHeading);
    closeFont(fonts.fontLabel);
    closeFont(fonts.fontTab);
    closeFont(fonts.fontWide);
    closeFont(fonts.fontSplash);
}

}  // namespace veloria
