// The seven fonts of the interface. A font that cannot be opened stays null, and its text stays blank.
#pragma once

#include <SDL_ttf.h>

namespace veloria {

struct Fonts {
    TTF_Font* fontRow = nullptr;      // 12 points: button labels, table rows
    TTF_Font* fontTiny = nullptr;     // 8: small labels of the views
    TTF_Font* fontHeading = nullptr;  // 14: headlines, figures of the retuner
    TTF_Font* fontLabel = nullptr;    // 10: nearly all panel text
    TTF_Font* fontTab = nullptr;      // 12: tab captions, the load button
    TTF_Font* fontWide = nullptr;     // 16: the views; a face that holds Hebrew where there is one
    TTF_Font* fontSplash = nullptr;   // 40: the splash, monospaced bold where there is one
};

// Opens what can be opened. TTF_Init has succeeded before. Main thread.
void openFonts(Fonts& fonts);

// Closes what is open and leaves all null.
void closeFonts(Fonts& fonts);

}  // namespace veloria
