// Sliders, splitters, the selector, the rows' wheel and the keys.
#include <algorithm>
#include <cstdlib>

#include "engine/audio_lock.h"
#include "ui/input_steps.h"
#include "ui/scrolling.h"

namespace veloria {

namespace {

// Where `x` lies along a track, 0 to 1.
float alongTrack(const SDL_Rect& track, int x) {
    return std::clamp(static_cast<float>(x - track.x) / static_cast<float>(track.w), 0.0f, 1.0f);
}

// The controls of the "TUNING" tab take presses only where they are seen.
bool tuningTabTakes(const AppState& app, const SDL_Rect& hit, const PointerEvent& p) {
    return !isEmpty(hit) && app.viewMode == kTuningTab && app.layout.leftWidth > kMinimumTuning &&
           contains(leftPanelView(app.layout), p.x, p.y);
}

bool onGainTrack(const AppState& app, const SDL_Rect& track, const PointerEvent& p) {
    return tuningTabTakes(app, track, p) && p.x >= track.x && p.x <= track.x + track.w &&
           p.y >= track.y - 3 && p.y <= track.y + kGainReachBelow;
}

// The gain slider that is held follows the pointer, wherever that goes.
bool moveGain(AppState& app, const PointerEvent& p) {
    if (app.held.synthGainLeft) {
        app.gains->synthGainLeft = alongTrack(tuningLayout(app.layout).gainLeft, p.x);
    } else if (app.held.synthGainRight) {
        app.gains->synthGainRight = alongTrack(tuningLayout(app.layout).gainRight, p.x);
    } else {
        return false;
    }
    return true;
}

bool pressGain(AppState& app, const PointerEvent& p) {
    app.held.synthGainLeft = onGainTrack(app, app.hits.synthGainHitLeft, p);
    app.held.synthGainRight = !app.held.synthGainLeft && onGainTrack(app, app.hits.synthGainHitRight, p);
    return moveGain(app, p);
}

// The stored size that a splitter sets.
int& splitterSize(PanelSizes& sizes, Splitter splitter) {
    if (splitter == Splitter::Recorder) return sizes.recorderHeight;
    return splitter == Splitter::Left ? sizes.leftWidth : sizes.rightX;
}

int shownSize(const WindowLayout& layout, Splitter splitter) {
    if (splitter == Splitter::Recorder) return layout.recorder.h;
    return splitter == Splitter::Left ? layout.leftWidth : layout.rightX;
}

bool pressSplitter(AppState& app, Splitter splitter, const PointerEvent& p) {
    if (splitter == Splitter::None) return false;
    app.held.splitter = splitter;
    app.held.splitterStart = shownSize(app.layout, splitter);
    app.held.splitterStored = splitterSize(app.sizes, splitter);
    app.held.pressX = p.x;
    app.held.pressY = p.y;
    return true;
}

// Held to `low` even where that is above `high`, as in a window too small for both.
int within(int value, int low, int high) {
    return std::max(low, std::min(value, high));
}

// Where a splitter may be dragged to. A window too small for the limits of both sides shows a splitter beyond
// its limit: it may stay there, but go no farther.
int splitterLimit(const AppState& app, int value) {
    const WindowLayout& layout = app.layout;
    const int start = app.held.splitterStart;
    switch (app.held.splitter) {
        case Splitter::Recorder:
            return within(value, kMinimumRecorder, layout.windowH - kRoomAboveRecorder);
        case Splitter::Left:
            return within(value, 0, std::max(layout.rightX - 200, start));
        default:
            return within(value, std::min(layout.leftWidth + 200, start), layout.windowW);
    }
}

bool moveSplitter(AppState& app, const PointerEvent& p) {
    const HeldControls& held = app.held;
    if (held.splitter == Splitter::None) return false;
    const int moved = held.splitter == Splitter::Recorder ? held.pressY - p.y : p.x - held.pressX;
    // What is shown may be less than what is stored: a press alone must not cut that down.
    splitterSize(app.sizes, held.splitter) =
        moved == 0 ? held.splitterStored : splitterLimit(app, held.splitterStart + moved);
    return true;
}

Relaxed<std::int32_t>* fxSetting(AppState& app, int slider) {
    SynthEngine& engine = *app.engine;
    Relaxed<std::int32_t>* settings[] = {&engine.fibonacciCount, &engine.piCount,  &engine.teslaCount,
                                         &engine.octaveSteps,    &engine.phiSteps, &engine.fibPhase,
                                         &engine.teslaPhase};
    return slider < kFxVolume ? settings[slider] : nullptr;
}

void setFxSlider(AppState& app, int slider, int x) {
    const float place = alongTrack(fxSliderRect(app.layout, slider), x);
    Relaxed<std::int32_t>* setting = fxSetting(app, slider);
    if (setting == nullptr) {
        app.gains->masterGain = place;
        return;
    }
    const FxRow& row = kFxRows[static_cast<std::size_t>(slider)];
    const auto steps = static_cast<std::int32_t>(place * static_cast<float>(row.high - row.low) + 0.5f);
    *setting = std::clamp(steps + row.low, row.low, row.high);
}

bool onTuningTrack(const AppState& app, const SDL_Rect& track, const PointerEvent& p) {
    return tuningTabTakes(app, track, p) && p.x >= track.x - 2 && p.x <= track.x + track.w + 2 &&
           p.y >= track.y - 8 && p.y < track.y + track.h + 8;
}

void setStrength(AppState& app, int x) {
    const auto percent = static_cast<std::int32_t>(alongTrack(tuningLayout(app.layout).strength, x) * 100.0f);
    app.players.retuner.strength.store(std::clamp(percent, 0, 100), std::memory_order_relaxed);
}

void setSpeed(AppState& app, int x) {
    const float place = alongTrack(tuningLayout(app.layout).speed, x);
    setWalkerSpeed(
        app.walker,
        static_cast<std::int32_t>(place * static_cast<float>(kMaxStepMs - kMinStepMs)) + kMinStepMs);
}

bool pressSelector(AppState& app, const PointerEvent& p) {
    const SDL_Rect& box = app.hits.selectorHit;
    if (!tuningTabTakes(app, box, p) || !contains(box, p.x, p.y)) return false;
    SacredFft& retuner = app.players.retuner;
    const auto targets = static_cast<std::int32_t>(sacredTargets.size());
    const std::int32_t index = retuner.targetIndex.load(std::memory_order_relaxed);
    if (p.x < box.x + 18) {
        retuner.targetIndex.store((index + targets - 1) % targets, std::memory_order_relaxed);
    } else if (p.x > box.x + box.w - 18) {
        retuner.targetIndex.store((index + 1) % targets, std::memory_order_relaxed);
    }
    // Wherever the box is clicked, its mode is what the user wants to hear.
    const AudioLock lock;
    retuner.SetMode(kModeSolfeggio);
    return true;
}

}  // namespace

bool splittersEvent(AppState& app, const PointerEvent& pointer) {
    if (pointer.motion) return moveGain(app, pointer) || moveSplitter(app, pointer);
    if (!pointer.leftDown) return false;
    const Splitter splitter = splitterAt(app.layout, pointer.x, pointer.y);
    if (splitter == Splitter::Recorder) return pressSplitter(app, splitter, pointer);
    return pressGain(app, pointer) || pressSplitter(app, splitter, pointer);
}

bool fxSlidersEvent(AppState& app, const PointerEvent& pointer) {
    if (pointer.motion) {
        for (int slider = 0; slider < kFxSliderCount; ++slider) {
            if (!app.held.fxSlider[static_cast<std::size_t>(slider)]) continue;
            setFxSlider(app, slider, pointer.x);
            return true;
        }
        return false;
    }
    if (!pointer.leftDown || app.viewMode != kFxTab) return false;
    const int slider = fxSliderAt(app.layout, pointer.x, pointer.y);
    if (slider < 0) return false;
    app.held.fxSlider[static_cast<std::size_t>(slider)] = true;
    setFxSlider(app, slider, pointer.x);
    return true;
}

bool tuningControlsEvent(AppState& app, const PointerEvent& pointer) {
    if (pointer.leftDown) {
        if (pressSelector(app, pointer)) return true;
        app.held.strength = onTuningTrack(app, app.hits.strengthHit, pointer);
        app.held.speed = !app.held.strength && onTuningTrack(app, app.hits.speedHit, pointer);
    } else if (!pointer.motion) {
        return false;
    }
    if (app.held.strength) {
        setStrength(app, pointer.x);
    } else if (app.held.speed) {
        setSpeed(app, pointer.x);
    } else {
        return false;
    }
    return true;
}

bool rowWheelEvent(AppState& app, const SDL_Event& event, const PointerEvent& pointer) {
    if (!pointer.wheel) return false;
    const WindowLayout& layout = app.layout;
    if (!contains({layout.rightX, 68, layout.rightPanel.w, layout.contentBottom - 68}, pointer.x,
                  pointer.y)) {
        return false;
    }
    const bool shadow = app.tableTab == 1;
    std::int32_t& scroll = shadow ? app.shadowScroll : app.avatarScroll;
    const int rows = shadow ? kShadowIndexCount : kAvatarFamilySize;
    scroll = std::clamp(scroll - kNotchPixels * event.wheel.y, 0, maxRowScroll(layout, rows));
    return true;
}

// What is seen moves, and takes presses, where the next frame draws it.
bool leftPanelWheelEvent(AppState& app, const SDL_Event& event, const PointerEvent& pointer) {
    if (!pointer.wheel || !leftPanelShown(app.layout)) return false;
    if (!contains(leftPanelView(app.layout), pointer.x, pointer.y)) return false;
    std::int32_t& scroll = app.leftScroll[static_cast<std::size_t>(app.viewMode)];
    scroll = std::clamp(scroll - kNotchPixels * event.wheel.y, 0, maxLeftScroll(app));
    return true;
}

bool combinationTextEvent(AppState& app, const SDL_Event& event) {
    const bool key = event.type == SDL_KEYDOWN || event.type == SDL_KEYUP;
    if (key) app.combination = isCombination(event.key.keysym.mod);
    return event.type == SDL_TEXTINPUT && app.combination;
}

bool keyEvent(AppState& app, const SDL_Event& event) {
    if (event.type != SDL_KEYDOWN) return false;
    // A combination is another key, and of these none has a meaning here.
    if (isCombination(event.key.keysym.mod)) return true;
    switch (event.key.keysym.sym) {
        case SDLK_1:
            app.engine->midiTuningMode = 0;
            break;
        case SDLK_q:
            app.engine->waveform = 0;
            break;
        case SDLK_w:
            app.engine->waveform = 1;
            break;
        case SDLK_e:
            app.engine->waveform = 2;
            break;
        case SDLK_r:
            app.engine->waveform = 3;
            break;
        case SDLK_f:
            if (event.key.repeat == 0) app.engine->bassFilter = !app.engine->bassFilter;
            break;
        default:
            break;
    }
    return true;
}

void releaseControls(AppState& app, const PointerEvent& pointer) {
    if (pointer.leftUp) app.held = {};
}

}  // namespace veloria
