// A second MIDI reader, slow and straightforward: two passes over the tracks, and a walk of the whole tempo
// map for each event. The tests and the fuzz target hold the real reader against it.
#pragma once

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "media/midi_file.h"

namespace veloria {

// To the last bit of the time.
inline bool operator==(const MidiEvent& a, const MidiEvent& b) {
    return std::bit_cast<std::uint64_t>(a.time) == std::bit_cast<std::uint64_t>(b.time) && a.note == b.note &&
           a.velocity == b.velocity && a.isNoteOn == b.isNoteOn && a.channel == b.channel && a.tick == b.tick;
}

}  // namespace veloria

namespace veloria::test {

class LiteralMidi {
  public:
    explicit LiteralMidi(std::span<const std::uint8_t> file) : file_(file) {}

    std::vector<MidiEvent> events() {
        if (file_.size() < 14) return {};
        if (file_[0] != 'M' || file_[1] != 'T' || file_[2] != 'h' || file_[3] != 'd') return {};
        tempos_.push_back({0, 500000});
        pass(false);
        std::stable_sort(tempos_.begin(), tempos_.end(), [](auto a, auto b) { return a.tick < b.tick; });
        pass(true);
        // NaN apart, so that the sort's order is a plain one.
        const auto number = [](const MidiEvent& event) { return !std::isnan(event.time); };
        const auto middle = std::stable_partition(events_.begin(), events_.end(), number);
        std::stable_sort(events_.begin(), middle, [](auto a, auto b) { return a.time < b.time; });
        return events_;
    }

  private:
    void pass(bool second) {
        std::uint64_t at = 14;
        const int tracks = file_[10] * 256 + file_[11];
        for (int track = 0; track < tracks; ++track) {
            if (at + 8 > file_.size()) return;
            if (file_[at] != 'M' || file_[at + 1] != 'T' || file_[at + 2] != 'r' || file_[at + 3] != 'k')
                return;
            std::uint64_t length = 0;
            for (int i = 4; i < 8; ++i)
                length = length * 256 + file_[at + static_cast<unsigned>(i)];
            walk(at + 8, at + 8 + length, second);
            at += 8 + length;
        }
    }

    void walk(std::uint64_t at, const std::uint64_t trackEnd, bool second) {
        const std::uint64_t fileEnd = file_.size();
        std::uint32_t tick = 0;
        unsigned running = 0;
        while (at < trackEnd && at < fileEnd) {
            tick += variable(at);
            if (at >= trackEnd || at >= fileEnd) return;
            unsigned byte = file_[at];
            if (byte == 0xFF) {
                at += 1;
                if (at >= trackEnd || at >= fileEnd) return;
                const unsigned type = file_[at++];
                const std::uint64_t length = variable(at);
                if (type == 0x2F) return;
                if (!second && type == 0x51 && length == 3 && at + 3 <= trackEnd && at + 3 <= fileEnd) {
                    const unsigned tempo = file_[at] * 65536U + file_[at + 1] * 256U + file_[at + 2];
                    if (tempo != 0) tempos_.push_back({tick, tempo});
                }
                at += length;
            } else if (byte == 0xF0 || byte == 0xF7) {
                at += 1;
                const std::uint64_t length = variable(at);
                at += length;
            } else {
                if (byte >= 0x80) {
                    running = byte;
                    at += 1;
                }
                const unsigned kind = running / 16;
                if (second && (kind == 8 || kind == 9)) {
                    if (at + 1 >= fileEnd) return;
                    keep(kind, running % 16, file_[at], file_[at + 1], tick);
                }
                at += kind == 12 || kind == 13 ? 1 : 2;
            }
        }
    }

    std::uint32_t variable(std::uint64_t& at) const {
        std::uint32_t value = 0;
        while (at < file_.size()) {
            value = value * 128 + file_[at] % 128;
            if (file_[at++] < 128) break;
        }
        return value;
    }

    void keep(unsigned kind, unsigned channel, int key, int velocity, std::uint32_t tick) {
        MidiEvent event{};
        event.time = seconds(tick);
        event.note = key;
        event.velocity = kind == 9 ? velocity : 0;
        event.isNoteOn = kind == 9 && velocity != 0;
        event.channel = static_cast<std::int32_t>(channel);
        event.tick = tick;
        events_.push_back(event);
    }

    double seconds(std::uint32_t tick) const {
        const double division = file_[12] * 256 + file_[13];
        double time = 0;
        std::uint32_t lastTick = 0;
        double tempo = 500000;
        for (const TempoChange& entry : tempos_) {
            if (entry.tick >= tick) break;
            time += (entry.tick - lastTick) * (tempo / 1000000.0) / division;
            lastTick = entry.tick;
            tempo = entry.microsPerQuarter;
        }
        return time + (tick - lastTick) * (tempo / 1000000.0) / division;
    }

    std::span<const std::uint8_t> file_;
    std::vector<TempoChange> tempos_;
    std::vector<MidiEvent> events_;
};

}  // namespace veloria::test
