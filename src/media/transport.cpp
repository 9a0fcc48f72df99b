#include "media/transport.h"

#include <array>

#include "engine/audio_lock.h"
#include "engine/control.h"
#include "media/extension.h"
#include "media/midi_load.h"
#include "media/midi_playback.h"
#include "media/midi_tuning.h"
#include "media/pcm_loader.h"
#include "platform/audio_device.h"
#include "platform/clock.h"
#include "platform/media_command.h"
#include "platform/message_box.h"
#include "spectral/drain.h"

namespace veloria {

namespace {

constexpr std::uint32_t kLoadWaitMs = 50;
constexpr std::uint32_t kMciPollMs = 500;
constexpr std::size_t kReplySize = 64;
constexpr std::size_t kErrorTextSize = 256;

constexpr std::array<platform::FileFilter, 4> kMusicFileFilters = {{
    {"All Music Files", "*.mid;*.midi;*.mp3;*.wav;*.wma"},
    {"MIDI Files", "*.mid;*.midi"},
    {"Audio Files", "*.mp3;*.wav;*.wma"},
    {"All Files", "*.*"},
}};

// Keeps the device paused for as long as a file is read. A pause and not the lock: reading takes long.
class DevicePause {
  public:
    DevicePause() {
        platform::pauseAudioDevice(true);
        platform::waitMs(kLoadWaitMs);
    }
    ~DevicePause() { platform::pauseAudioDevice(false); }
    DevicePause(const DevicePause&) = delete;
    DevicePause& operator=(const DevicePause&) = delete;
};

void sendMci(const std::string& command) {
    // Whether play, stop, seek and close succeeded changes nothing in what the user can do next.
    static_cast<void>(platform::mediaCommand(command, nullptr, 0));
}

std::string askMci(const std::string& command) {
    std::array<char, kReplySize> reply{};
    static_cast<void>(platform::mediaCommand(command, reply.data(), reply.size()));
    return reply.data();
}

// What the retuner still holds of a file would sound on after the file.
void silenceRetuner(const MediaPlayers& players) {
    const AudioLock lock;
    players.retuner.ResetStreams();
}

void loadMidi(Transport& transport, const MediaPlayers& players, const std::string& path) {
    bool read = false;
    {
        const DevicePause pause;
        static_cast<void>(clearPcmStream(players.pcm));
        silenceRetuner(players);
        // A file that cannot be parsed leaves the kind at MIDI, with no notes to play.
        transport.kind = MediaKind::Midi;
        read = readMidiFile(players.midi, path, players.engine);
        optimizeMidiFile(players.midi, players.engine);
        pauseMidi(players.midi, players.engine.time);
    }
    if (!read) platform::messageBox("Failed to parse MIDI file!", "Error", platform::MessageIcon::Error);
}

void loadPcm(Transport& transport, const MediaPlayers& players, const std::string& path) {
    bool loaded = false;
    {
        const DevicePause pause;
        hardReset(players.engine);
        clearMidi(players.midi);
        loaded = loadPcmFile(players.pcm, path);
        silenceRetuner(players);
    }
    transport.kind = loaded ? MediaKind::Pcm : MediaKind::None;
    if (!loaded) {
        platform::messageBox("Could not read audio file!", "Error", platform::MessageIcon::Error);
    }
}

void loadMci(Transport& transport, const MediaPlayers& players, const std::string& path) {
    {
        const DevicePause pause;
        hardReset(players.engine);
        clearMidi(players.midi);
        static_cast<void>(clearPcmStream(players.pcm));
        silenceRetuner(players);
    }
    const int code = platform::mediaCommand("open \"" + path + "\" alias VeloMedia", nullptr, 0);
    transport.kind = code == 0 ? MediaKind::Mci : MediaKind::None;
    if (code != 0) {
        std::array<char, kErrorTextSize> text{};
        platform::mediaErrorText(code, text.data(), text.size());
        platform::messageBox(text.data(), "File Open Error", platform::MessageIcon::Error);
    }
}

// Fed to its end, and what the retuner held back has been given out.
bool hasRungOut(const MediaPlayers& players) {
    if (players.pcm.playing || players.pcm.samples.empty()) return false;
    const AudioLock lock;
    return framesToCome(players.retuner, loadSettings(players.retuner)) == 0;
}

bool hasEnded(Transport& transport, const MediaPlayers& players, std::uint32_t now) {
    switch (transport.kind) {
        case MediaKind::Midi:
            return midiFinished(players.midi, players.engine);
        case MediaKind::Pcm:
            return hasRungOut(players);
        case MediaKind::Mci:
            if (now - transport.lastMciPoll < kMciPollMs) return false;
            transport.lastMciPoll = now;
            return askMci("status VeloMedia mode") == "stopped";
        case MediaKind::None:
            return false;
    }
    return false;
}

}  // namespace

const platform::OpenDialog kMusicFileDialog{"Select Music File", kMusicFileFilters};

void loadMedia(Transport& transport, const MediaPlayers& players, const std::string& path) {
    transport.playing = false;
    transport.currentPath = path;
    closeMci();
    // currentPath and not path: at the end of a file the caller hands over currentPath itself.
    const std::string extension = extensionOf(transport.currentPath);
    if (extension == "mid" || extension == "midi") {
        loadMidi(transport, players, transport.currentPath);
    } else if (extension == "wav" || extension == "mp3") {
        loadPcm(transport, players, transport.currentPath);
    } else {
        loadMci(transport, players, transport.currentPath);
    }
}

void playMedia(Transport& transport, const MediaPlayers& players) {
    switch (transport.kind) {
        case MediaKind::Midi:
            resumeMidi(players.midi, players.engine);
            transport.playing = true;
            break;
        case MediaKind::Pcm:
            if (!players.pcm.samples.empty()) players.pcm.playing = true;
            transport.playing = true;
            break;
        case MediaKind::Mci:
            if (!transport.mciPosition.empty()) sendMci("seek VeloMedia to " + transport.mciPosition);
            sendMci("play VeloMedia");
            transport.mciStopped = false;
            transport.playing = true;
            break;
        case MediaKind::None:
            break;
    }
    startDrones(players.engine);
}

void stopMedia(Transport& transport, const MediaPlayers& players) {
    transport.playing = false;
    switch (transport.kind) {
        case MediaKind::Midi:
            pauseMidi(players.midi, players.engine.time);
            break;
        case MediaKind::Pcm:
            players.pcm.playing = false;
            break;
        case MediaKind::Mci:
            transport.mciPosition = askMci("status VeloMedia position");
            sendMci("stop VeloMedia");
            transport.mciStopped = true;
            break;
        case MediaKind::None:
            break;
    }
    silenceRetuner(players);
    stopDrones(players.engine);
}

void resetMedia(Transport& transport, const MediaPlayers& players) {
    hardReset(players.engine);
    transport.playing = false;
    transport.toggleFlag = false;
    closeMci();
    std::vector<float> dropped;
    {
        // The device runs on: the callback must not be inside the samples while they go.
        const AudioLock lock;
        dropped = clearPcmStream(players.pcm);
        players.retuner.ResetStreams();
        clearMidi(players.midi);
        transport.kind = MediaKind::None;
    }
    transport.currentPath.clear();
    transport.fileLabel.clear();
}

void closeMci() {
    sendMci("stop VeloMedia");
    sendMci("close VeloMedia");
}

void pollMediaEnd(Transport& transport, const MediaPlayers& players, std::uint32_t now,
                  const std::function<void(const std::string&)>& onLoadFile) {
    if (!transport.playing || transport.currentPath.empty()) return;
    if (!hasEnded(transport, players, now)) {
        transport.endLatch = false;
        return;
    }
    if (transport.endLatch) return;
    transport.playing = false;
    transport.endLatch = true;
    // A copy: loading writes currentPath.
    onLoadFile(std::string(transport.currentPath));
}

}  // namespace veloria
