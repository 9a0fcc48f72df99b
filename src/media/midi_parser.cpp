#include "media/midi_parser.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <exception>
#include <utility>

#include "platform/files.h"

namespace veloria {
namespace {

constexpr std::size_t kHeaderBytes = 14;  // track data begins here, whatever the header's length field says
constexpr std::size_t kChunkHeaderBytes = 8;  // id and length
constexpr std::uint32_t kDefaultMicrosPerQuarter = 500000;
constexpr std::uint8_t kMetaEvent = 0xFF;
constexpr std::uint8_t kSysex = 0xF0;
constexpr std::uint8_t kSysexContinued = 0xF7;
constexpr std::uint8_t kMetaEndOfTrack = 0x2F;
constexpr std::uint8_t kMetaTempo = 0x51;
constexpr std::size_t kPairingSlots = 2048;  // 16 channels of 128 keys
constexpr std::size_t kUsualEventBytes = 4;  // delta, status, key and velocity
constexpr std::size_t kMaxReservedEvents = std::size_t{1} << 22;

struct MidiContents {
    std::vector<TempoChange> tempos;
    std::vector<MidiEvent> events;  // times still 0
};

// The walk of one track. Positions have 64 bits, so that a length near 2^32 cannot wrap them.
struct TrackWalk {
    std::span<const std::uint8_t> bytes;  // the whole file
    std::uint64_t position;
    std::uint64_t end;  // by the chunk's length; may lie behind the file's end
    std::uint32_t tick = 0;
    std::uint8_t status = 0;  // running status
};

std::uint32_t bigEndian(const std::uint8_t* bytes, std::size_t count) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < count; ++i)
        value = value << 8 | bytes[i];
    return value;
}

bool atEnd(const TrackWalk& track) {
    return track.position >= track.end || track.position >= track.bytes.size();
}

// Seven bits a byte, the high bit marking that more follow. Only the file's end stops it, not the track's; of
// a value that is too long the last 32 bits stay.
std::uint32_t readVariableLength(TrackWalk& track) {
    std::uint32_t value = 0;
    while (track.position < track.bytes.size()) {
        const std::uint8_t byte = track.bytes[track.position++];
        value = value << 7 | (byte & 0x7FU);
        if ((byte & 0x80U) == 0) break;
    }
    return value;
}

// From behind the 0xFF. False when the track is over.
bool readMeta(TrackWalk& track, MidiContents& contents) {
    if (atEnd(track)) return false;
    const std::uint8_t type = track.bytes[track.position++];
    const std::uint32_t length = readVariableLength(track);
    if (type == kMetaEndOfTrack) return false;
    const std::uint64_t dataEnd = track.position + length;
    if (type == kMetaTempo && length == 3 && dataEnd <= track.end && dataEnd <= track.bytes.size()) {
        const std::uint32_t tempo = bigEndian(&track.bytes[track.position], 3);
        if (tempo != 0) contents.tempos.push_back({track.tick, tempo});
    }
    track.position = dataEnd;
    return true;
}

// The data bytes of a channel event, under the running status. False when the track is over.
bool readChannelEvent(TrackWalk& track, MidiContents& contents) {
    const unsigned kind = track.status & 0xF0U;
    if (kind != 0x80U && kind != 0x90U) {
        // Statuses 0xF1 to 0xFE and the 0 of a track that has had no status yet take two bytes as well.
        track.position += kind == 0xC0U || kind == 0xD0U ? 1 : 2;
        return true;
    }
    if (track.position + 1 >= track.bytes.size())
        return false;  // the file's end counts here, not the track's
    const std::uint8_t key = track.bytes[track.position];
    const std::uint8_t velocity = kind == 0x90U ? track.bytes[track.position + 1] : std::uint8_t{0};
    track.position += 2;
    contents.events.push_back({0.0, key, velocity, velocity != 0, track.status & 0x0F, track.tick});
    return true;
}

// One event, from behind its delta. False when the track is over.
bool readEvent(TrackWalk& track, MidiContents& contents) {
    const std::uint8_t first = track.bytes[track.position];
    if (first == kMetaEvent) {
        ++track.position;
        return readMeta(track, contents);
    }
    if (first == kSysex || first == kSysexContinued) {
        ++track.position;
        const std::uint32_t length = readVariableLength(track);
        track.position += length;
        return true;
    }
    if (first >= 0x80) {
        track.status = first;
        ++track.position;
    }
    return readChannelEvent(track, contents);
}

void readTrack(TrackWalk track, MidiContents& contents) {
    while (!atEnd(track)) {
        track.tick += readVariableLength(track);
        if (atEnd(track) || !readEvent(track, contents)) return;
    }
}

// Reads up to `trackCount` tracks; a chunk that is not a track ends the file.
MidiContents readTracks(std::span<const std::uint8_t> bytes, std::uint32_t trackCount) {
    MidiContents contents;
    contents.tempos.push_back({0, kDefaultMicrosPerQuarter});
    contents.events.reserve(std::min(bytes.size() / kUsualEventBytes, kMaxReservedEvents));
    std::uint64_t position = kHeaderBytes;
    for (std::uint32_t i = 0; i < trackCount; ++i) {
        if (position + kChunkHeaderBytes > bytes.size()) break;
        const std::uint8_t* header = &bytes[position];
        if (std::memcmp(header, "MTrk", 4) != 0) break;
        const std::uint64_t begin = position + kChunkHeaderBytes;
        const std::uint64_t end = begin + bigEndian(header + 4, 4);
        readTrack({bytes, begin, end}, contents);
        position = end;
    }
    return contents;
}

// Where the tempo map stands behind some number of its entries.
struct TempoState {
    double seconds;
    std::uint32_t tick;
    double secondsPerQuarter;
};

double secondsPerQuarter(std::uint32_t micros) {
    return static_cast<double>(micros) / 1000000.0;
}

double secondsAt(const TempoState& state, std::uint32_t tick, std::uint32_t division) {
    return state.seconds +
           static_cast<double>(tick - state.tick) * state.secondsPerQuarter / static_cast<double>(division);
}

// How many entries of the map lie before `tick`, of which `guess` were before the event before. Ticks grow
// along a track, so that the map is walked along with it; a damaged file's may jump, and are searched for.
std::size_t entriesBefore(const std::vector<TempoChange>& tempos, std::uint32_t tick, std::size_t guess) {
    constexpr std::size_t kMaxSteps = 4;
    const bool grown = guess == 0 || tempos[guess - 1].tick < tick;
    const std::size_t limit = std::min(guess + kMaxSteps, tempos.size());
    std::size_t passed = guess;
    while (passed < limit && tempos[passed].tick < tick)
        ++passed;
    if (grown && (passed == tempos.size() || tempos[passed].tick >= tick)) return passed;
    const auto reached =
        std::lower_bound(tempos.begin(), tempos.end(), tick,
                         [](const TempoChange& entry, std::uint32_t at) { return entry.tick < at; });
    return static_cast<std::size_t>(reached - tempos.begin());
}

// An event's time is the sum over the map's entries before its tick. The sums are kept for each entry, added
// in the order of a walk from the start, so that they are the same to the last bit: walking for each event
// would take hours on a file made of a million tempo changes.
void setEventTimes(MidiContents& contents, std::uint32_t division) {
    std::vector<TempoChange>& tempos = contents.tempos;
    // Stable: the default entry stays ahead of a tempo at tick 0, and of two at one tick the later one
    // counts.
    std::stable_sort(tempos.begin(), tempos.end(),
                     [](const TempoChange& a, const TempoChange& b) { return a.tick < b.tick; });
    std::vector<TempoState> states;
    states.reserve(tempos.size() + 1);
    states.push_back({0.0, 0, secondsPerQuarter(kDefaultMicrosPerQuarter)});
    for (const TempoChange& entry : tempos) {
        states.push_back({secondsAt(states.back(), entry.tick, division), entry.tick,
                          secondsPerQuarter(entry.microsPerQuarter)});
    }
    std::size_t passed = 0;
    for (MidiEvent& event : contents.events) {
        passed = entriesBefore(tempos, event.tick, passed);
        event.time = secondsAt(states[passed], event.tick, division);
    }
}

// Where each stretch of events in time order begins, and the end.
std::vector<std::size_t> sortedRuns(const std::vector<MidiEvent>& events) {
    std::vector<std::size_t> runs{0};
    for (std::size_t i = 1; i < events.size(); ++i) {
        if (timeBefore(events[i].time, events[i - 1].time)) runs.push_back(i);
    }
    runs.push_back(events.size());
    return runs;
}

// A stable sort by time. The events are in time order along each track already: neighbouring stretches are
// merged until one is left.
void sortByTime(std::vector<MidiEvent>& events) {
    const auto earlier = [](const MidiEvent& a, const MidiEvent& b) { return timeBefore(a.time, b.time); };
    std::vector<std::size_t> runs = sortedRuns(events);
    std::vector<MidiEvent> merged;
    if (runs.size() > 2) merged.resize(events.size());
    while (runs.size() > 2) {
        std::vector<std::size_t> fewer{0};
        for (std::size_t i = 0; i + 1 < runs.size(); i += 2) {
            const auto at = [&events](std::size_t n) {
                return events.begin() + static_cast<std::ptrdiff_t>(n);
            };
            const std::size_t middle = runs[i + 1];
            const std::size_t end = i + 2 < runs.size() ? runs[i + 2] : middle;
            std::merge(at(runs[i]), at(middle), at(middle), at(end),
                       merged.begin() + static_cast<std::ptrdiff_t>(runs[i]), earlier);
            fewer.push_back(end);
        }
        events.swap(merged);
        runs.swap(fewer);
    }
}

struct PairingSlot {
    std::int32_t velocity;  // 0: no note sounding
    std::size_t place;      // of its note
};

// A note and the order in which its end was met.
struct PairedNote {
    MidiNote note;
    std::size_t order;  // kOpen: it has none yet
};
constexpr std::size_t kOpen = ~std::size_t{0};

// By start, and with one start in the order of the ends. Events in time order have left nothing but equal
// starts to be sorted.
void orderNotes(std::vector<PairedNote>& notes) {
    const auto byStart = [](const PairedNote& a, const PairedNote& b) {
        return timeBefore(a.note.start, b.note.start);
    };
    if (!std::is_sorted(notes.begin(), notes.end(), byStart))
        std::stable_sort(notes.begin(), notes.end(), byStart);
    const auto byOrder = [](const PairedNote& a, const PairedNote& b) { return a.order < b.order; };
    for (auto first = notes.begin(); first != notes.end();) {
        auto last = first + 1;
        while (last != notes.end() && !timeBefore(first->note.start, last->note.start))
            ++last;
        if (last - first > 1) std::sort(first, last, byOrder);
        first = last;
    }
}

// The notes that have found their end.
std::vector<MidiNote> closedNotes(const std::vector<PairedNote>& notes, std::size_t count) {
    std::vector<MidiNote> closed;
    closed.reserve(count);
    for (const PairedNote& entry : notes) {
        if (entry.order != kOpen) closed.push_back(entry.note);
    }
    return closed;
}

}  // namespace

std::vector<MidiEvent> parseMidiEvents(std::span<const std::uint8_t> bytes) {
    if (bytes.size() < kHeaderBytes || std::memcmp(bytes.data(), "MThd", 4) != 0) return {};
    const std::uint32_t trackCount = bigEndian(&bytes[10], 2);
    const std::uint32_t division =
        bigEndian(&bytes[12], 2);  // SMPTE timing is taken as a large number of ticks
    try {
        MidiContents contents = readTracks(bytes, trackCount);
        setEventTimes(contents, division);
        sortByTime(contents.events);
        return std::move(contents.events);
    } catch (const std::exception&) {  // no memory
        return {};
    }
}

std::vector<MidiEvent> parseMidiEvents(const std::string& path) {
    std::vector<std::uint8_t> bytes;
    if (!platform::readWholeFile(path, bytes)) return {};
    return parseMidiEvents(std::span<const std::uint8_t>(bytes));
}

std::vector<MidiNote> pairMidiNotes(const std::vector<MidiEvent>& events) {
    std::array<PairingSlot, kPairingSlots> slots{};
    // A note takes its place when it begins, so that the list is in the order of starts without a sort.
    std::vector<PairedNote> notes;
    notes.reserve(events.size() / 2);
    std::size_t closed = 0;
    for (const MidiEvent& event : events) {
        // A key above 127 falls into the next channel's slots, and on the last channel behind them all.
        const auto index = static_cast<std::size_t>(event.channel * 128 + event.note);
        if (index >= slots.size()) continue;
        PairingSlot& slot = slots[index];
        if (event.isNoteOn && event.velocity > 0) {
            slot = {event.velocity, notes.size()};
            const auto velocity = static_cast<float>(event.velocity / 127.0);
            notes.push_back({{event.time, 0.0, event.note, velocity, event.channel, -1.0F}, kOpen});
        } else if (slot.velocity > 0) {
            PairedNote& entry = notes[slot.place];
            entry.note.end = event.time;
            entry.note.note = event.note;
            entry.order = closed++;
            slot.velocity = 0;
        }
    }
    orderNotes(notes);
    return closedNotes(notes, closed);
}

double lastNoteEnd(const std::vector<MidiNote>& notes) {
    double last = 0.0;
    for (const MidiNote& note : notes) {
        if (timeBefore(last, note.end)) last = note.end;
    }
    return last;
}

}  // namespace veloria
