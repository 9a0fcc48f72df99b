#include "media/midi_playback.h"

#include <algorithm>
#include <array>

#include "engine/audio_lock.h"
#include "engine/render.h"
#include "engine/voice_list.h"
#include "media/midi_tuning.h"

namespace veloria {

namespace {

constexpr double kStealSeconds = 0.005;
constexpr double kRingOutSeconds = 0.5;
constexpr std::int32_t kKeysPerStealRank = 13;  // not an octave: odd, and kept

// A note on the engine's clock, about to become a voice.
struct ScheduledNote {
    std::int32_t note;
    float velocity;
    double startTime;
    double endTime;
    std::int32_t channel;
    float pan;
};

// Sounding voices of each channel. Counted once for a batch: the clock stands still for its length, and what
// a batch does to the counts is known.
using ChannelCounts = std::array<std::int32_t, kChannelCount>;

ChannelCounts countSounding(const SynthEngine& engine) {
    ChannelCounts counts{};
    for (const Voice& voice : engine.voices) {
        if (isSounding(voice.startTime, voice.endTime, engine.time)) {
            ++counts[static_cast<std::size_t>(voice.channel)];
        }
    }
    return counts;
}

// The voice to give up for a new note: the highest rank, and of equal ones the newest. Null without voices.
Voice* findVictim(SynthEngine& engine) {
    const auto ranksBelow = [](const Voice& a, const Voice& b) {
        return a.stealRank != b.stealRank ? a.stealRank < b.stealRank : a.id < b.id;
    };
    const auto victim = std::max_element(engine.voices.begin(), engine.voices.end(), ranksBelow);
    return victim == engine.voices.end() ? nullptr : &*victim;
}

// False when the new note of `rank` has to be dropped.
bool makeRoom(SynthEngine& engine, std::int32_t rank, ChannelCounts& counts) {
    Voice* victim = findVictim(engine);
    if (victim == nullptr || victim->stealRank < rank) return false;
    const double now = engine.time;
    const bool sounded = isSounding(victim->startTime, victim->endTime, now);
    victim->endTime = now + kStealSeconds;  // its release begins at a quarter: an audible, short step
    const bool sounds = isSounding(victim->startTime, victim->endTime, now);
    counts[static_cast<std::size_t>(victim->channel)] += static_cast<int>(sounds) - static_cast<int>(sounded);
    return true;
}

void startNote(SynthEngine& engine, const ScheduledNote& note, ChannelCounts& counts) {
    if (note.channel < 0 || note.channel >= kChannelCount) return;
    const auto channel = static_cast<std::size_t>(note.channel);
    if (!engine.channels[channel].enabled) return;
    const std::int32_t rank = note.note / kKeysPerStealRank;
    if (counts[channel] >= engine.channels[channel].maxVoices && !makeRoom(engine, rank, counts)) return;

    Voice voice;
    voice.frequency = midiToFrequency(engine, note.note, note.channel);
    voice.tuningTag = engine.midiTuningTag;
    voice.midiNote = note.note;
    voice.volume = note.velocity;
    voice.startTime = note.startTime;
    voice.endTime = note.endTime;
    voice.channel = note.channel;
    voice.stealRank = rank;
    voice.pan = note.pan < 0.0f ? panAffinity(voice.frequency) : note.pan;
    voice.id = engine.nextVoiceId++;
    engine.voices.push_back(voice);
    if (isSounding(voice.startTime, voice.endTime, engine.time)) ++counts[channel];
}

}  // namespace

namespace {

// Hands over what is due, under one hold; false when the voice list was full before all of it was.
bool handOverDueNotes(MidiFile& file, SynthEngine& engine, double lookahead) {
    const AudioLock lock;
    const double now = engine.time;
    if (file.timeOffset + file.notes[file.nextNote].start > now + lookahead) return true;
    ChannelCounts counts = countSounding(engine);
    while (file.nextNote < file.notes.size()) {
        const MidiNote& note = file.notes[file.nextNote];
        const double onset = file.timeOffset + note.start;
        if (onset > now + lookahead) break;
        if (engine.voices.size() == engine.voices.capacity()) return false;
        ++file.nextNote;
        const double release = file.timeOffset + note.end;
        if (release > now) {
            startNote(engine, {note.note, note.velocity, onset, release, note.channel, note.pan}, counts);
        }
    }
    return true;
}

}  // namespace

void midiTick(MidiFile& file, SynthEngine& engine, double lookahead) {
    if (file.paused || file.nextNote >= file.notes.size()) return;
    // Memory is had between two holds. Where there is none the notes that are left wait for the next tick.
    while (!handOverDueNotes(file, engine, lookahead)) {
        if (!growVoices(engine)) return;
    }
}

void startMidiNote(SynthEngine& engine, std::int32_t note, float velocity, double startTime, double endTime,
                   std::int32_t channel, float pan) {
    if (engine.voices.size() == engine.voices.capacity())
        return;  // the caller holds the lock: no memory here
    ChannelCounts counts = countSounding(engine);
    startNote(engine, {note, velocity, startTime, endTime, channel, pan}, counts);
}

void pauseMidi(MidiFile& file, double now) {
    if (file.paused) return;
    file.pausedAt = now;
    file.paused = true;
}

void resumeMidi(MidiFile& file, const SynthEngine& engine) {
    if (!file.paused || file.notes.empty()) return;
    const double position = file.pausedAt - file.timeOffset;
    file.timeOffset += engine.time - file.pausedAt;
    while (file.nextNote > 0 && file.notes[file.nextNote - 1].start >= position)
        --file.nextNote;
    file.paused = false;
}

void clearMidi(MidiFile& file) {
    file.notes.clear();
    file.nextNote = 0;
    file.paused = false;
    file.pausedAt = 0.0;
    file.timeOffset = 0.0;
    file.duration = 0.0;
    file.binauralPairs = 0;
}

bool midiFinished(const MidiFile& file, const SynthEngine& engine) {
    return file.nextNote >= file.notes.size() &&
           engine.time > file.duration + file.timeOffset + kRingOutSeconds;
}

}  // namespace veloria
