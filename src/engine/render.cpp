#include "engine/render.h"

#include <algorithm>

#include "engine/master.h"
#include "engine/stacks.h"

namespace veloria {

namespace {

constexpr double kAttackSeconds = 0.005;

std::size_t countSounding(const SynthEngine& engine, double time) {
    return static_cast<std::size_t>(std::count_if(
        engine.voices.begin(), engine.voices.end(),
        [time](const Voice& voice) { return isSounding(voice.startTime, voice.endTime, time); }));
}

// What is the same for all voices of one sample.
struct SampleContext {
    double time;
    float tremolo;
    VoiceOverrides globals;
};

struct StereoSum {
    float left = 0.0f;
    float right = 0.0f;
};

void addVoice(StereoSum& sum, Voice& voice, const ChannelState& channel, const SampleContext& context) {
    const float env = envelopeAt(voice, context.time);
    float wave = renderPartials(voice, resolveSettings(voice.overrides, context.globals));
    wave *= context.tremolo;
    const float s = levelAt(voice, context.time) * channel.volume * env * wave;
    // Linear and doubled: the centre is unity on both sides, a hard pan is twice that on one.
    sum.left += 2.0f * (1.0f - voice.pan) * s;
    sum.right += 2.0f * voice.pan * s;
}

}  // namespace

VoiceOverrides loadGlobals(const GlobalSettings& globals) {
    return {.fibonacciCount = globals.fibonacciCount,
            .piCount = globals.piCount,
            .teslaCount = globals.teslaCount,
            .octaveSteps = globals.octaveSteps,
            .phiSteps = globals.phiSteps,
            .fibPhase = globals.fibPhase,
            .teslaPhase = globals.teslaPhase,
            .waveform = globals.waveform};
}

double attackSeconds(const Voice& voice) {
    const double duration = voice.endTime - voice.startTime;
    return duration < kAttackSeconds ? duration * 0.2 : kAttackSeconds;
}

float envelopeAt(const Voice& voice, double time) {
    const double age = time - voice.startTime;
    const double left = voice.endTime - time;
    const double attack = attackSeconds(voice);
    double env = 1.0;
    if (age < attack) {
        if (attack > 0.0) env = age / attack;
    } else if (left < kReleaseSeconds) {
        env = left / kReleaseSeconds;
    }
    return std::clamp(static_cast<float>(env), 0.0f, 1.0f);
}

float levelAt(const Voice& voice, double time) {
    float level = voice.volume;
    if (voice.targetVolume >= 0.0f && voice.endTime > voice.startTime) {
        const auto progress =
            static_cast<float>((time - voice.startTime) / (voice.endTime - voice.startTime));
        level += std::clamp(progress, 0.0f, 1.0f) * (voice.targetVolume - level);
    }
    return level;
}

void renderStereoSample(SynthEngine& engine, float out[2]) {
    const double time = engine.time + kSampleSeconds;
    engine.time = time;
    engine.masterLevel = glideMasterLevel(engine.masterLevel, polyphonyTarget(countSounding(engine, time)));
    const SampleContext context{time, tremoloAt(time), loadGlobals(engine)};

    StereoSum sum;
    std::vector<Voice>& voices = engine.voices;
    for (std::size_t i = 0; i < voices.size();) {
        Voice& voice = voices[i];
        if (voice.startTime > time) {
            ++i;
            continue;
        }
        if (time >= voice.endTime) {
            if (i + 1 != voices.size()) voice = voices.back();
            voices.pop_back();
            continue;  // the moved voice is next
        }
        addVoice(sum, voice, engine.channels[static_cast<std::size_t>(voice.channel)], context);
        ++i;
    }
    writeMaster(engine, sum.left, sum.right, out);
}

}  // namespace veloria
