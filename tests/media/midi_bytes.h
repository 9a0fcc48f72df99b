// Builds the bytes of MIDI files, sound ones and damaged ones.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <vector>

namespace veloria::test {

using Bytes = std::vector<std::uint8_t>;

inline void append(Bytes& bytes, const Bytes& more) {
    for (const std::uint8_t byte : more)
        bytes.push_back(byte);
}

inline void appendBigEndian(Bytes& bytes, std::uint32_t value, int count) {
    for (int i = count - 1; i >= 0; --i)
        bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

// The shortest variable-length form of `value`.
inline Bytes variableLength(std::uint32_t value) {
    Bytes bytes;
    int shift = 28;
    while (shift > 0 && value >> shift == 0)
        shift -= 7;
    for (; shift > 0; shift -= 7)
        bytes.push_back(static_cast<std::uint8_t>((value >> shift & 0x7FU) | 0x80U));
    bytes.push_back(static_cast<std::uint8_t>(value & 0x7FU));
    return bytes;
}

// The events of one track; each function adds one and returns the track. Deltas in ticks.
struct MidiTrack {
    Bytes bytes;

    MidiTrack& raw(std::initializer_list<int> values) {
        for (const int value : values)
            bytes.push_back(static_cast<std::uint8_t>(value));
        return *this;
    }

    MidiTrack& delta(std::uint32_t ticks) {
        append(bytes, variableLength(ticks));
        return *this;
    }

    MidiTrack& on(std::uint32_t ticks, int channel, int key, int velocity) {
        return delta(ticks).raw({0x90 | channel, key, velocity});
    }

    MidiTrack& off(std::uint32_t ticks, int channel, int key, int velocity = 64) {
        return delta(ticks).raw({0x80 | channel, key, velocity});
    }

    MidiTrack& meta(std::uint32_t ticks, int type, std::initializer_list<int> data) {
        delta(ticks).raw({0xFF, type});
        append(bytes, variableLength(static_cast<std::uint32_t>(data.size())));
        return raw(data);
    }

    MidiTrack& tempo(std::uint32_t ticks, std::uint32_t microsPerQuarter) {
        const auto byte = [&](int shift) { return static_cast<int>(microsPerQuarter >> shift & 0xFFU); };
        return meta(ticks, 0x51, {byte(16), byte(8), byte(0)});
    }

    MidiTrack& endOfTrack(std::uint32_t ticks = 0) { return meta(ticks, 0x2F, {}); }
};

// A track's chunk, with its own length unless another is claimed.
inline Bytes trackChunk(const Bytes& events, std::uint32_t claimedLength) {
    Bytes bytes{'M', 'T', 'r', 'k'};
    appendBigEndian(bytes, claimedLength, 4);
    append(bytes, events);
    return bytes;
}

inline Bytes trackChunk(const Bytes& events) {
    return trackChunk(events, static_cast<std::uint32_t>(events.size()));
}

inline Bytes midiHeader(int trackCount, int division) {
    Bytes bytes{'M', 'T', 'h', 'd', 0, 0, 0, 6, 0, 1};
    appendBigEndian(bytes, static_cast<std::uint32_t>(trackCount), 2);
    appendBigEndian(bytes, static_cast<std::uint32_t>(division), 2);
    return bytes;
}

// A whole file of `tracks`, announcing as many.
inline Bytes midiFile(int division, const std::vector<MidiTrack>& tracks) {
    Bytes bytes = midiHeader(static_cast<int>(tracks.size()), division);
    for (const MidiTrack& track : tracks)
        append(bytes, trackChunk(track.bytes));
    return bytes;
}

}  // namespace veloria::test
