#include "app/audio_callback.h"

namespace veloria {

SynthEngine* g_engine = nullptr;
AppState* g_app = nullptr;

void audioCallback(void* /*userdata*/, std::uint8_t* stream, int byteCount) {
    if (g_engine == nullptr || g_app == nullptr) return;
    const int frames = byteCount / 8;
    if (frames < 1) return;
    mixOutput({*g_engine, g_app->players.pcm, g_app->players.retuner}, *g_app->gains,
              reinterpret_cast<float*>(stream), static_cast<std::size_t>(frames), &g_app->scope);
}

}  // namespace veloria
