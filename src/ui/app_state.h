// The one object of the interface. It composes the records of its parts and has no behaviour.
#pragma once

#include <SDL.h>

#include <cstdint>
#include <functional>
#include <string>

#include "engine/synth_engine.h"
#include "media/mix.h"
#include "media/transport.h"
#include "ui/toolkit/fonts.h"
#include "ui/toolkit/theme.h"

namespace veloria {

struct AppState {
    AppState(SynthEngine& engineRef, MediaPlayers mediaPlayers, OutputGains& outputGains)
        : engine(&engineRef), players(mediaPlayers), gains(&outputGains) {}

    SynthEngine* engine;
    MediaPlayers players;
    OutputGains* gains;

    SDL_Window* window = nullptr;
    SDL_Renderer* renderer = nullptr;
    Fonts fonts;
    Theme theme;

    std::int32_t windowW = 0;  // pixels, read at the head of each frame
    std::int32_t windowH = 0;

    Transport transport;
    ScopeBuffer scope;  // written by the audio callback, read under AudioLock

    // The operations behind the transport's buttons, installed at start-up. A control looks its object up
    // when it is clicked; none is ever copied into a control.
    std::function<void(const std::string&)> onLoadFile;
    std::function<void()> onStop;
    std::function<void()> onPlay;
    std::function<void()> onToggleFlag;
    std::function<void()> onReset;

    std::uint32_t splashStart = 0;  // ms; when the welcome began, 0 once it is over
};

}  // namespace veloria
