#include "app/main_loop.h"

#include "platform/clock.h"
#include "ui/frame.h"
#include "ui/input.h"
#include "ui/sound_tick.h"

namespace veloria {

bool mainLoopPass(AppState& app, std::uint32_t& lastFrame, const LoopCalls& calls) {
    app.draw.ticks = platform::ticksMs();  // events belong to this instant, not to the last frame's
    const bool running = calls.pollEvents(app);
    // On every pass and not once a frame, so that a late frame does not starve the notes.
    feedNotes(app);
    const std::uint32_t now = platform::ticksMs();
    if (now - lastFrame >= kFrameMs) {
        tickSound(app, now);
        calls.renderFrame(app, now);
        lastFrame = now;
    }
    const std::uint32_t elapsed = platform::ticksMs() - lastFrame;
    if (elapsed < kFrameMs) platform::waitMs(kFrameMs - elapsed);
    return running;
}

void runMainLoop(AppState& app) {
    const LoopCalls calls{pollEvents, renderFrame};
    std::uint32_t lastFrame = platform::ticksMs();
    while (mainLoopPass(app, lastFrame, calls)) {
    }
}

}  // namespace veloria
