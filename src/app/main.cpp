// The entry of the windowed program.
#include "app/audio_callback.h"
#include "app/main_loop.h"
#include "app/window.h"
#include "app/wiring.h"
#include "base/file_place.h"
#include "engine/audio_lock.h"
#include "engine/vector_target.h"
#include "media/midi_tuning.h"
#include "platform/audio_device.h"
#include "platform/message_box.h"

namespace veloria {
namespace {

constexpr int kWidth = 1280;
constexpr int kHeight = 720;
constexpr const char* kTitle = "Veloria V3.6 - 342 Frequency System";
constexpr std::uint16_t kCallbackFrames = 512;

// These outlive the audio device, and are too large for a stack.
MidiFile g_midiFile;
PcmStream g_pcmStream;
SacredFft g_sacredFft;
OutputGains g_outputGains;

bool openAudio() {
    SDL_AudioSpec spec;
    SDL_zero(spec);
    spec.freq = kSampleRate;
    spec.format = AUDIO_F32LSB;
    spec.channels = 2;
    spec.samples = kCallbackFrames;
    spec.callback = audioCallback;
    // No second argument: the device converts where it must.
    return SDL_OpenAudio(&spec, nullptr) >= 0;
}

int fail(const char* text) {
    platform::messageBox(text, "Error", platform::MessageIcon::Error);
    return 1;
}

int run(AppState& app) {
    if (!initWindowAndFonts(app, kTitle, kWidth, kHeight)) return fail("Failed to initialize SDL2/TTF!");
    installAudioLock({platform::lockAudioDevice, platform::unlockAudioDevice});
    chooseVectorTarget();  // else the first callback would ask the processor
    if (!openAudio()) return fail("Failed to open audio device!");
    platform::pauseAudioDevice(false);
    // The callback runs from here on, with no voices and the retuner off: nothing reads these tables yet.
    fillHannWindow(g_sacredFft);
    g_sacredFft.Init();
    fillSolfeggioRatio(g_sacredFft);
    prepareMidiTuning();
    {
        const AudioLock lock;
        g_sacredFft.ResetStreams();
    }
    installTransport(app);
    keepSoundInDialogs(app);

    runMainLoop(app);

    stopSoundInDialogs();
    platform::pauseAudioDevice(true);
    SDL_CloseAudio();
    closeMci();
    return 0;
}

}  // namespace
}  // namespace veloria

int main(int /*argc*/, char* /*argv*/[]) {
    using namespace veloria;
    outliveFileSizeLimit();
    SynthEngine engine;
    g_engine = &engine;
    AppState app(engine, {engine, g_midiFile, g_pcmStream, g_sacredFft}, g_outputGains);
    g_app = &app;
    const int result = run(app);
    shutdownWindowAndFonts(app);
    return result;
}
