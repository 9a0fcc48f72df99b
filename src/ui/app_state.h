// The one object of the interface. It composes the records of its parts and has no behaviour.
#pragma once

#include <SDL.h>

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "engine/scope_buffer.h"
#include "engine/synth_engine.h"
#include "media/mix.h"
#include "media/transport.h"
#include "recorder/recorder.h"
#include "toolkit/draw_context.h"
#include "toolkit/fonts.h"
#include "toolkit/panel_input.h"
#include "toolkit/text_cache.h"
#include "toolkit/theme.h"
#include "ui/layout.h"
#include "ui/panels.h"
#include "ui/widgets.h"
#include "views/calculator/calculator.h"
#include "views/kathara/kathara_host.h"
#include "views/lotus/lotus.h"
#include "views/sacred/sacred_panel.h"
#include "views/scene/vitruvian_assets.h"
#include "views/scope.h"
#include "views/shadow/shadow_view.h"
#include "views/shared/frame_snapshot.h"
#include "views/spectrum/spectrum.h"
#include "walker/scale_walker.h"

namespace veloria {

// Places of the left panel's controls as last drawn; empty while they are not on screen, so that nothing is
// hit that is not seen.
struct HitRects {
    SDL_Rect selectorHit{};
    SDL_Rect strengthHit{};
    SDL_Rect speedHit{};
    SDL_Rect synthGainHitLeft{};
    SDL_Rect synthGainHitRight{};
};

// What the pointer holds. Each is set by a left press and cleared by the left release, wherever it happens.
struct HeldControls {
    std::array<bool, kFxSliderCount> fxSlider{};
    bool strength = false;
    bool speed = false;
    bool synthGainLeft = false;
    bool synthGainRight = false;
    Splitter splitter = Splitter::None;
    int splitterStart = 0;   // the splitter's own value as shown at the press
    int splitterStored = 0;  // and as stored
    int pressX = 0;
    int pressY = 0;
};

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
    TextCache textCache;
    DrawContext draw;  // filled anew at the head of each frame

    PanelSizes sizes;
    WindowLayout layout;  // of the last frame, by layOutWindow; what the events are tested against
    HitRects hits;
    HeldControls held;
    bool combination = false;  // Ctrl, Alt or the system key was held at the last key event

    std::vector<Widget> widgets;
    std::int32_t viewMode = 0;                         // ViewMode: tab of the left panel
    std::int32_t voicesSubTab = 0;                     // 0 "VOICE", 1 "FREQUENCY"
    std::int32_t tableTab = 0;                         // 0 "162 AVATAR", 1 "180 SHADOW"
    std::int32_t avatarSubTab = 0;                     // 0 "REFLECTION", 1 "ROTATION"
    std::int32_t avatarScroll = 0;                     // pixels
    std::int32_t shadowScroll = 0;                     // pixels
    std::array<std::int32_t, kTabCount> leftScroll{};  // pixels, of each tab of the left panel

    FloatingPanels panels;
    PanelResize panelResize;
    std::int32_t spectrumPalette = 0;  // 0 Avatar ("SPEC 1"), 1 Chakra ("SPEC 2")
    CalculatorState calculator;
    ScopeState scopeView;
    LotusState lotus;  // and the clock of all views
    SacredState sacred;
    SpectrumState spectrum;
    ShadowState shadow;
    VitruvianAssets assets;  // of the renderer's memory: freed before it
    KatharaState kathara;    // of the centre view and its panel

    Transport transport;
    ScaleWalker walker;
    Recorder recorder;
    bool exporting = false;  // an export renders: frames must not begin or end any voice
    ScopeBuffer scope;       // written by the audio callback, read under AudioLock
    FrameSnapshot snapshot;

    // The operations behind the transport's buttons, installed at start-up. A control looks its object up
    // when it is clicked; none is ever copied into a control.
    std::function<void(const std::string&)> onLoadFile;
    std::function<void()> onStop;
    std::function<void()> onPlay;
    std::function<void()> onToggleFlag;
    std::function<void()> onImportMidi;
    std::function<void()> onReset;

    std::uint32_t splashStart = 0;  // ms; when the welcome began, 0 once it is over
    std::uint32_t lastFrameMs =
        0;  // ms; 0 before the first frame and after an export: no time has passed then
};

}  // namespace veloria
