#include <algorithm>

#include "engine/block_kernels.h"
#include "engine/master.h"
#include "engine/render.h"
#include "engine/stacks.h"

namespace veloria {

namespace {

// The frames of one sub-block, and what happens to the voice list in them.
struct SubBlock {
    int frames = 0;
    PerFrame<double> times;  // s; past `frames` the last one again
    VoiceOverrides globals;
    std::array<std::int32_t, kSubBlockFrames + 1> changes{};  // voices that begin less those that end there
    std::array<bool, kSubBlockFrames> removals{};             // whether a voice leaves the list there
    StereoSum sum;
};

// Adds sample by sample, as the clock of single samples does: a product would round otherwise.
void takeTimes(SynthEngine& engine, SubBlock& block) {
    double time = engine.time;
    for (int i = 0; i < kSubBlockFrames; ++i) {
        if (i < block.frames) time += kSampleSeconds;
        block.times[static_cast<std::size_t>(i)] = time;
    }
    engine.time = time;
}

// The first frame at which `reached` is true of the clock; `frames` when there is none.
template <class Reached>
int firstFrame(const SubBlock& block, Reached reached) {
    const auto begin = block.times.begin();
    const auto found =
        std::partition_point(begin, begin + block.frames, [&](double time) { return !reached(time); });
    return static_cast<int>(found - begin);
}

// Where the voice sounds. `end` lies before `first` for a voice that ends before it begins.
FrameRange rangeOf(const Voice& voice, const SubBlock& block) {
    const double last = block.times.back();
    if (voice.startTime > last) return {block.frames, block.frames};
    FrameRange range{0, block.frames};
    if (voice.startTime > block.times.front()) {
        range.first = firstFrame(block, [&](double time) { return !(voice.startTime > time); });
    }
    if (last >= voice.endTime) {
        range.end = firstFrame(block, [&](double time) { return time >= voice.endTime; });
    }
    return range;
}

// Writes down what the voice means for the list and for the count of sounding voices.
void noteChanges(const Voice& voice, FrameRange range, SubBlock& block) {
    if (range.first >= block.frames) return;
    const auto first = static_cast<std::size_t>(range.first);
    if (isSounding(voice.startTime, voice.endTime, block.times[first])) {
        ++block.changes[first];
        --block.changes[static_cast<std::size_t>(range.end)];
    }
    const int removed = std::max(range.first, range.end);
    if (removed < block.frames) block.removals[static_cast<std::size_t>(removed)] = true;
}

// True when neither envelope nor glide moves the voice in the range; the comparisons are envelopeAt's.
bool isSteady(const Voice& voice, const VoiceRamp& ramp, FrameRange range, const SubBlock& block) {
    if (range.first != 0 || range.end != block.frames || ramp.glide != 0.0) return false;
    return !(block.times.front() - voice.startTime < ramp.attack) &&
           !(voice.endTime - block.times.back() < kReleaseSeconds);
}

VoiceRamp rampOf(const Voice& voice) {
    VoiceRamp ramp{.startTime = voice.startTime,
                   .endTime = voice.endTime,
                   .attack = attackSeconds(voice),
                   .level = voice.volume};
    if (voice.targetVolume >= 0.0f && voice.endTime > voice.startTime) {
        ramp.glide = voice.targetVolume - voice.volume;
    }
    return ramp;
}

void renderVoice(SynthEngine& engine, Voice& voice, PartialTable& table, FrameRange range, SubBlock& block) {
    updatePartialTable(table, voice.frequency, resolveSettings(voice.overrides, block.globals));
    if (table.count == 0) return;
    const float level = engine.channels[static_cast<std::size_t>(voice.channel)].volume / table.weight;
    VoiceGain gain{2.0f * (1.0f - voice.pan) * level, 2.0f * voice.pan * level};
    const VoiceRamp ramp = rampOf(voice);
    PerFrame<float> moved;
    if (isSteady(voice, ramp, range, block)) {
        gain.left *= voice.volume;
        gain.right *= voice.volume;
    } else {
        fillRamp(ramp, block.times, moved);
        std::fill(moved.begin(), moved.begin() + range.first, 0.0f);
        std::fill(moved.begin() + range.end, moved.end(), 0.0f);
        gain.ramp = &moved;
    }
    addVoice(table, voice.phases, range, gain, block.sum);
}

void renderVoices(SynthEngine& engine, SubBlock& block) {
    block.sum.left.fill(0.0f);
    block.sum.right.fill(0.0f);
    for (std::size_t i = 0; i < engine.voices.size(); ++i) {
        Voice& voice = engine.voices[i];
        const FrameRange range = rangeOf(voice, block);
        noteChanges(voice, range, block);
        if (range.first >= range.end) continue;
        // The voices past the last table share it.
        PartialTable& table = engine.partialTables[std::min(i, engine.partialTables.size() - 1)];
        renderVoice(engine, voice, table, range, block);
    }
}

// One sample's walk of the list: a gap is filled by the last voice, which is looked at next.
void removeEndedAt(std::vector<Voice>& voices, double time) {
    for (std::size_t i = 0; i < voices.size();) {
        if (voices[i].startTime > time || !(time >= voices[i].endTime)) {
            ++i;
            continue;
        }
        if (i + 1 != voices.size()) voices[i] = voices.back();
        voices.pop_back();
    }
}

// Takes the ended voices away in the order in which a walk at each sample would have met them.
void removeEnded(SynthEngine& engine, const SubBlock& block) {
    for (std::size_t i = 0; i < block.removals.size(); ++i) {
        if (block.removals[i]) removeEndedAt(engine.voices, block.times[i]);
    }
}

void glideLevels(SynthEngine& engine, const SubBlock& block, PerFrame<float>& levels) {
    std::int32_t sounding = 0;
    float level = engine.masterLevel;
    float target = polyphonyTarget(0);
    for (std::size_t i = 0; i < static_cast<std::size_t>(block.frames); ++i) {
        if (block.changes[i] != 0) {
            sounding += block.changes[i];
            target = polyphonyTarget(static_cast<std::size_t>(sounding));
        }
        level = glideMasterLevel(level, target);
        levels[i] = level;
    }
    std::fill(levels.begin() + block.frames, levels.end(), level);
    engine.masterLevel = level;
}

void renderSounding(SynthEngine& engine, SubBlock& block, float* out) {
    block.globals = loadGlobals(engine);
    renderVoices(engine, block);
    PerFrame<float> levels;
    glideLevels(engine, block, levels);
    removeEnded(engine, block);
    BlockOutput output;
    limitSum(block.sum, block.times, levels, output);
    std::copy(output.stereo.begin(), output.stereo.begin() + 2 * block.frames, out);
    feedScopeRing(engine, output.mono.data(), static_cast<std::size_t>(block.frames));
}

// Without voices only the clock and the level move, and the level no more once it is as near its rest as
// single precision brings it.
void renderSilence(SynthEngine& engine, const SubBlock& block, float* out) {
    static constexpr PerFrame<float> kSilence{};
    const float rest = polyphonyTarget(0);
    for (int i = 0; i < block.frames; ++i) {
        const float level = glideMasterLevel(engine.masterLevel, rest);
        if (level == engine.masterLevel) break;
        engine.masterLevel = level;
    }
    std::fill(out, out + 2 * block.frames, 0.0f);
    feedScopeRing(engine, kSilence.data(), static_cast<std::size_t>(block.frames));
}

void renderSubBlock(SynthEngine& engine, float* out, int frames) {
    SubBlock block;
    block.frames = frames;
    takeTimes(engine, block);
    if (engine.voices.empty()) {
        renderSilence(engine, block, out);
    } else {
        renderSounding(engine, block, out);
    }
}

}  // namespace

void renderStereoBlock(SynthEngine& engine, float* out, std::size_t frames) {
    while (frames > 0) {
        const std::size_t count = std::min<std::size_t>(frames, kSubBlockFrames);
        renderSubBlock(engine, out, static_cast<int>(count));
        out += 2 * count;
        frames -= count;
    }
}

}  // namespace veloria
