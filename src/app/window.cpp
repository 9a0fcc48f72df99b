#include "app/window.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "platform/clock.h"

namespace veloria {

namespace {

constexpr int kMinimumWidth = 800;
constexpr int kMinimumHeight = 600;
constexpr std::uint32_t kMaximiseWaitMs = 250;
constexpr std::uint32_t kMaximisePollMs = 10;

void setHints() {
    // A full-window program is no reason to switch the desktop's compositor off.
    SDL_SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Veloria");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_STREAM_NAME, "Veloria");
}

// SDL draws into memory where it finds no display. Unless that is what the user asks for, he would have a
// program that runs and shows nothing.
bool hasAnyDisplay() {
    const char* driver = SDL_GetCurrentVideoDriver();
    if (driver == nullptr || std::strcmp(driver, "offscreen") != 0) return true;
    const char* wanted = SDL_GetHint(SDL_HINT_VIDEODRIVER);
    return wanted != nullptr && std::strstr(wanted, "offscreen") != nullptr;
}

// The working directory first, then beside the program.
SDL_RWops* openIcon() {
    SDL_RWops* file = SDL_RWFromFile("icon.bmp", "rb");
    if (file != nullptr) return file;
    char* base = SDL_GetBasePath();
    if (base == nullptr) return nullptr;
    file = SDL_RWFromFile((std::string(base) + "icon.bmp").c_str(), "rb");
    SDL_free(base);
    return file;
}

void loadIcon(SDL_Window* window) {
    SDL_RWops* file = openIcon();
    if (file == nullptr) return;
    SDL_Surface* icon = SDL_LoadBMP_RW(file, 1);
    if (icon == nullptr) return;
    SDL_SetWindowIcon(window, icon);
    SDL_FreeSurface(icon);
}

SDL_Renderer* createRenderer(SDL_Window* window) {
    SDL_Renderer* renderer = SDL_CreateRenderer(window, -1, SDL_RENDERER_ACCELERATED);
    if (renderer != nullptr) return renderer;
    // No graphics driver: a slower picture is better than no instrument.
    return SDL_CreateRenderer(window, -1, SDL_RENDERER_SOFTWARE | SDL_RENDERER_TARGETTEXTURE);
}

// Window systems maximise some time after the window was made. The first layout must see the final size, so
// wait for it, but not for long: without a window manager it never comes.
void awaitMaximise(SDL_Window* window, int width, int height) {
    const std::uint32_t begin = platform::ticksMs();
    while (platform::ticksMs() - begin < kMaximiseWaitMs) {
        SDL_PumpEvents();
        int currentWidth = 0;
        int currentHeight = 0;
        SDL_GetWindowSize(window, &currentWidth, &currentHeight);
        if (currentWidth != width || currentHeight != height) return;
        platform::waitMs(kMaximisePollMs);
    }
}

}  // namespace

bool initWindowAndFonts(AppState& app, const char* title, int width, int height) {
    setHints();
    if (SDL_Init(SDL_INIT_AUDIO | SDL_INIT_VIDEO) != 0 || TTF_Init() != 0) return false;
    if (!hasAnyDisplay()) return false;
    openFonts(app.fonts);
    app.window = SDL_CreateWindow(title, SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, width, height,
                                  SDL_WINDOW_SHOWN | SDL_WINDOW_RESIZABLE | SDL_WINDOW_MAXIMIZED);
    if (app.window == nullptr) return false;
    SDL_SetWindowMinimumSize(app.window, kMinimumWidth, kMinimumHeight);
    loadIcon(app.window);
    app.renderer = createRenderer(app.window);
    if (app.renderer == nullptr) return false;
    SDL_SetRenderDrawBlendMode(app.renderer, SDL_BLENDMODE_BLEND);
    awaitMaximise(app.window, width, height);
    buildWidgetLists(app);
    app.recorder.engine = app.engine;
    app.recorder.onToggleCalc = [&app] { toggleCalculator(app.calculator); };
    app.splashStart = std::max<std::uint32_t>(1, platform::ticksMs());
    return true;
}

void shutdownWindowAndFonts(AppState& app) {
    if (app.renderer != nullptr) clearTextCache(app.textCache);
    dropSceneTexture(app.kathara);
    freeAssets(app.assets);
    closeFonts(app.fonts);
    if (app.renderer != nullptr) SDL_DestroyRenderer(app.renderer);
    app.renderer = nullptr;
    if (app.window != nullptr) SDL_DestroyWindow(app.window);
    app.window = nullptr;
    if (TTF_WasInit() != 0) TTF_Quit();
    SDL_Quit();
}

}  // namespace veloria
