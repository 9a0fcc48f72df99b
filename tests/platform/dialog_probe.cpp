// Shows one of the platform's windows in front of a window of its own and prints what came of it;
// dialog_test.sh plays the user.   dialog_probe open|save|box
#include <SDL.h>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

#include "platform/dialog_hook.h"
#include "platform/dialogs.h"
#include "platform/message_box.h"

namespace {

using namespace veloria::platform;

constexpr FileFilter kOpenFilters[] = {{"All Music Files", "*.mid;*.midi;*.mp3;*.wav;*.wma"},
                                       {"All Files", "*.*"}};
constexpr FileFilter kSaveFilters[] = {{"WAV Files", "*.wav"}, {"All Files", "*.*"}};

// The desktop may ask the program to quit at any time, also while a dialog stands.
Uint32 SDLCALL pushQuit(Uint32 /*interval*/, void* /*unused*/) {
    SDL_Event event{};
    event.type = SDL_QUIT;
    SDL_PushEvent(&event);
    return 0;
}

int countEvents(SDL_EventType type) {
    SDL_Event events[64];
    return SDL_PeepEvents(events, 64, SDL_PEEKEVENT, type, type);
}

// So that everything the dialog was shown before is in the queue and off the screen.
void showWindow(SDL_Window* window) {
    SDL_FillRect(SDL_GetWindowSurface(window), nullptr, 0x305070);
    SDL_UpdateWindowSurface(window);
    const Uint32 start = SDL_GetTicks();
    while (SDL_GetKeyboardFocus() == nullptr && SDL_GetTicks() - start < 5000) {
        SDL_PumpEvents();
        SDL_Delay(5);
    }
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
}

int g_hookCalls = 0;
Uint32 g_lastCall = 0;     // ms
Uint32 g_longestWait = 0;  // ms between two calls

void noteCall() {
    const Uint32 now = SDL_GetTicks();
    g_longestWait = std::max(g_longestWait, now - g_lastCall);
    g_lastCall = now;
    ++g_hookCalls;
}

std::string run(const char* what) {
    if (std::strcmp(what, "open") == 0) return chooseFileToOpen({"Select Music File", kOpenFilters});
    if (std::strcmp(what, "save") == 0) {
        return chooseFileToSave({"Export Recorder to WAV", kSaveFilters, "recorder_export.wav", "wav"});
    }
    messageBox("Could not read audio file!", "Probe Error", MessageIcon::Error);
    return "(box)";
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2 || SDL_Init(SDL_INIT_VIDEO | SDL_INIT_TIMER) != 0) return 2;
    SDL_Window* window = SDL_CreateWindow("Dialog Probe", 0, 0, 1200, 900, SDL_WINDOW_SHOWN);
    if (window == nullptr) return 2;
    showWindow(window);
    SDL_AddTimer(100, pushQuit, nullptr);
    const std::filesystem::path before = std::filesystem::current_path();
    setDialogHook(noteCall);
    g_lastCall = SDL_GetTicks();
    const std::string path = run(argv[1]);
    setDialogHook({});
    std::printf("path=%s\n", path.c_str());
    std::printf("down=%d up=%d key=%d text=%d keyup=%d quit=%d\n", countEvents(SDL_MOUSEBUTTONDOWN),
                countEvents(SDL_MOUSEBUTTONUP), countEvents(SDL_KEYDOWN), countEvents(SDL_TEXTINPUT),
                countEvents(SDL_KEYUP), countEvents(SDL_QUIT));
    std::printf("hook=%s\n", g_hookCalls > 5 ? "called" : "missed");
    std::fprintf(stderr, "the hook was called %d times, %u ms apart at the most\n", g_hookCalls,
                 g_longestWait);
    std::printf("numeric=%s folder=%s\n", std::setlocale(LC_NUMERIC, nullptr),
                before == std::filesystem::current_path() ? "kept" : "moved");
    SDL_DestroyWindow(window);
    SDL_Quit();
    return 0;
}
