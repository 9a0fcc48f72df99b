// The one loop of the main thread.
#pragma once

#include <cstdint>
#include <functional>

#include "ui/app_state.h"

namespace veloria {

inline constexpr std::uint32_t kFrameMs = 16;

// What a pass of the loop calls besides the players; replaced in tests.
struct LoopCalls {
    std::function<bool(AppState&)> pollEvents;
    std::function<void(AppState&, std::uint32_t nowMs)> renderFrame;
};

// One pass: events, MIDI feed, and at most once in 16 ms tickSound and a frame; then rests for what is left
// of the 16 ms. `lastFrame` (ms) is when the last frame was drawn. False once the program is to end.
[[nodiscard]] bool mainLoopPass(AppState& app, std::uint32_t& lastFrame, const LoopCalls& calls);

// Runs passes until the window is closed.
void runMainLoop(AppState& app);

}  // namespace veloria
