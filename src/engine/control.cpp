#include "engine/control.h"

#include <algorithm>
#include <cmath>

#include "engine/audio_lock.h"
#include "engine/voice_list.h"

namespace veloria {

namespace {

constexpr double kNoteOffSeconds = 0.02;
constexpr double kToggleReleaseSeconds = 0.15;
constexpr double kHeldSeconds = 3600.0;
constexpr double kDroneSeconds = 7200.0;
constexpr float kDroneVolume = 0.12f;  // the panel calls it -18 dB
constexpr std::array<double, 4> kDroneFrequencies = {322.0, 325.0, 111.0, 114.0};

void releaseOnChannel9(SynthEngine& engine, bool (*matches)(const Voice&, double), double frequency) {
    const AudioLock lock;
    const double end = engine.time + kNoteOffSeconds;
    for (Voice& voice : engine.voices) {
        if (voice.channel == kNoteChannel && matches(voice, frequency)) {
            voice.endTime = std::min(voice.endTime, end);
        }
    }
}

// What one family of frequency buttons plays, and by which voices it knows its own again.
struct ToggleFamily {
    std::int32_t channel;
    float volume;
    float pan;
    float panAbove;  // a voice of the family lies above this pan
    float panBelow;  // and below this one
};

constexpr ToggleFamily kReflectionFamily{kToggleChannel, 0.65f, 0.0f, -1.0f, 0.3f};
constexpr ToggleFamily kRotationFamily{kToggleChannel, 0.65f, 1.0f, 0.7f, 2.0f};
constexpr ToggleFamily kShadowFamily{kShadowChannel, 0.55f, 0.5f, -1.0f, 2.0f};

void toggle(SynthEngine& engine, bool& held, double frequency, const ToggleFamily& family) {
    if (!held) {
        Voice voice;
        voice.frequency = frequency;
        voice.volume = family.volume;
        voice.pan = family.pan;
        voice.channel = family.channel;
        startVoice(engine, voice, kHeldSeconds);
        held = true;
        return;
    }
    const AudioLock lock;
    const auto own = std::find_if(engine.voices.begin(), engine.voices.end(), [&](const Voice& voice) {
        return voice.channel == family.channel && voice.pan > family.panAbove &&
               voice.pan < family.panBelow && std::fabs(voice.frequency - frequency) < 0.1;
    });
    if (own != engine.voices.end()) own->endTime = engine.time + kToggleReleaseSeconds;
    held = false;
}

void clearHeld(SynthEngine& engine) {
    engine.reflectionHeld.fill(false);
    engine.rotationHeld.fill(false);
    engine.shadowHeld.fill(false);
}

}  // namespace

void noteOn(SynthEngine& engine, const NoteSpec& note) {
    Voice voice;
    voice.frequency = note.frequency;
    voice.volume = note.volume;
    voice.targetVolume = note.targetVolume;
    voice.channel = kNoteChannel;
    voice.pan = note.pan;
    voice.overrides = note.overrides;
    startVoice(engine, voice, note.duration);
}

void noteOffByFrequency(SynthEngine& engine, double frequency) {
    releaseOnChannel9(
        engine, [](const Voice& voice, double hz) { return std::fabs(voice.frequency - hz) < 1.0; },
        frequency);
}

void noteOffChannel9(SynthEngine& engine) {
    releaseOnChannel9(
        engine, [](const Voice&, double) { return true; }, 0.0);
}

void allNotesOff(SynthEngine& engine) {
    {
        const AudioLock lock;
        const double end = engine.time + kNoteOffSeconds;
        for (Voice& voice : engine.voices)
            voice.endTime = end;
    }
    clearHeld(engine);
}

void hardReset(SynthEngine& engine) {
    std::vector<Voice> dropped;
    dropped.reserve(kVoiceFigure);
    {
        const AudioLock lock;
        engine.voices.swap(dropped);
        engine.time = 0.0;
        clearHeld(engine);
    }
    engine.dronesOn = false;
    // `dropped` now holds the old voices: their memory is given back here, with the callback running again.
}

void toggleReflection(SynthEngine& engine, std::uint32_t index) {
    if (index >= engine.reflectionHeld.size()) return;
    toggle(engine, engine.reflectionHeld[index], reflectionFrequency(index), kReflectionFamily);
}

void toggleRotation(SynthEngine& engine, std::uint32_t index) {
    if (index >= engine.rotationHeld.size() || rotationFreqs[index] <= 0.0) return;
    toggle(engine, engine.rotationHeld[index], rotationFreqs[index], kRotationFamily);
}

void toggleShadow(SynthEngine& engine, std::uint32_t index) {
    if (index >= engine.shadowHeld.size()) return;
    toggle(engine, engine.shadowHeld[index], shadowFrequency(index), kShadowFamily);
}

void startDrones(SynthEngine& engine) {
    if (engine.dronesOn || engine.activationMode <= 0) return;
    // Plain sines whatever the engine's stacks, but its octave settings reach them.
    const VoiceOverrides sine{.fibonacciCount = 0, .piCount = 0, .teslaCount = 0, .waveform = 0};
    const std::size_t count = engine.activationMode >= 3 ? 4 : 2;
    for (std::size_t i = 0; i < count; ++i) {
        noteOn(engine, {.frequency = kDroneFrequencies[i],
                        .volume = kDroneVolume,
                        .pan = i % 2 == 0 ? 0.0f : 1.0f,
                        .overrides = sine,
                        .duration = kDroneSeconds});
    }
    engine.dronesOn = true;
}

void stopDrones(SynthEngine& engine) {
    if (!engine.dronesOn) return;
    for (const double frequency : kDroneFrequencies)
        noteOffByFrequency(engine, frequency);
    engine.dronesOn = false;
}

}  // namespace veloria
