#include "views/shared/frame_snapshot.h"

#include "engine/audio_lock.h"

namespace veloria {

void takeFrameSnapshot(const SynthEngine& engine, const ScopeBuffer& scope, const SacredFft& retuner,
                       FrameSnapshot& snapshot) {
    reserveSnapshot(engine, snapshot.engine);
    {
        const AudioLock lock;
        copySnapshot(engine, snapshot.engine);
        snapshot.scope = scope;
        snapshot.retuner = report(retuner);
    }
    snapshot.notes = activeVoiceBars(snapshot.engine);
    snapshot.voices = activeVoiceInfo(snapshot.engine);
    snapshot.reflectionHeld = engine.reflectionHeld;
    snapshot.rotationHeld = engine.rotationHeld;
    snapshot.shadowHeld = engine.shadowHeld;
}

}  // namespace veloria
