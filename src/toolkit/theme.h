// The colours of the interface.
#pragma once

#include <SDL.h>

namespace veloria {

// All opaque; what is drawn translucent sets its own alpha.
struct Theme {
    SDL_Color themeBackground{48, 48, 48, 255};  // clears the window each frame
    SDL_Color themePanel{64, 64, 64, 255};       // left and right panels
    SDL_Color themeBox{42, 42, 42, 255};         // boxes inside a panel
    SDL_Color themeTopBar{84, 84, 84, 255};      // top bar, status bar, the right panel's tab strip
    SDL_Color themeBorder{30, 30, 30, 255};      // separators and box outlines
    SDL_Color themeText{230, 230, 230, 255};     // text of the active tab
    SDL_Color themeTextDim{160, 160, 160, 255};  // text of idle tabs, zero lines of bipolar sliders
    SDL_Color themeAccent{71, 114, 179, 255};    // outline of the active sub-tab
    SDL_Color themeGold{255, 215, 0, 255};       // status and headline accent
    SDL_Color themeTabActive{78, 78, 78, 255};   // fill of the active tab
    SDL_Color themeTabIdle{58, 58, 58, 255};     // fill of idle tabs
    SDL_Color themeTrack{38, 38, 38, 255};       // slider tracks
    SDL_Color themeKnob{165, 165, 165, 255};     // slider knobs, idle button faces
    SDL_Color themeSine{46, 125, 50, 255};       // "Sine"
    SDL_Color themeSaw{216, 67, 21, 255};        // "Saw"
    SDL_Color themeLoad{21, 101, 192, 255};      // "LOAD MUSIC FILE"
    SDL_Color themeSquare{142, 36, 170, 255};    // "Square"
    SDL_Color themeTriangle{0, 137, 123, 255};   // "Triangle"
    SDL_Color themeFilter{120, 144, 156, 255};   // "Bass Filter"
    SDL_Color themeSpare1{251, 192, 45, 255};    // the four spares are set and drawn by nothing
    SDL_Color themeSpare2{120, 60, 160, 255};
    SDL_Color themeSpare3{60, 120, 180, 255};
    SDL_Color themeSpare4{180, 60, 120, 255};
    SDL_Color scopeBackground{18, 18, 24, 255};  // behind the traces of the scope
};

}  // namespace veloria
