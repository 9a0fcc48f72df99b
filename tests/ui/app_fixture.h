// A whole interface without a window: the state as the program makes it, with its widgets, on an off-screen
// renderer of 1280 by 720.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "spectral/sacred_fft.h"
#include "tests/ui/offscreen.h"
#include "ui/app_state.h"
#include "ui/layout.h"
#include "ui/scrolling.h"
#include "ui/widgets.h"

namespace veloria::test {

class AppTest : public testing::Test {
  protected:
    explicit AppTest(int w = 1280, int h = 720) : retuner(std::make_unique<SacredFft>()) {
        EXPECT_EQ(TTF_Init(), 0);
        openFonts(app.fonts);
        fillSolfeggioRatio(*retuner);
        buildWidgetLists(app);
        app.recorder.engine = &engine;
        moveMouse(-1, -1);
        resize(w, h);
        takeSnapshot();
    }
    ~AppTest() override {
        dropSceneTexture(app.kathara);
        freeAssets(app.assets);
        clearTextCache(app.textCache);
        closeFonts(app.fonts);
        TTF_Quit();
    }

    // A window of another size, as at the head of the next frame: the panels keep their sizes once they have
    // any.
    void resize(int w, int h) {
        clearTextCache(app.textCache);
        dropSceneTexture(app.kathara);
        freeAssets(app.assets);
        screen = std::make_unique<Offscreen>(w, h);
        screen->clear(kBackdrop);
        app.renderer = screen->renderer;
        initPanelSizes(app.sizes, w);
        layOut();
    }

    // Takes over app.sizes and forgets what was drawn, as each frame does before it draws.
    void layOut() {
        layOutWindow(app, screen->surface->w, screen->surface->h);
        app.hits = {};
        app.draw.renderer = app.renderer;
        app.draw.fonts = &app.fonts;
        app.draw.theme = &app.theme;
        app.draw.textCache = &app.textCache;
        app.draw.windowW = app.layout.windowW;
        app.draw.windowH = app.layout.windowH;
    }

    void setLeftWidth(int width) {
        app.sizes.leftWidth = width;
        layOut();
    }
    void setRightX(int x) {
        app.sizes.rightX = x;
        layOut();
    }
    // Sets the recorder's height so that the panels above it end here.
    void setContentBottom(int y) {
        app.sizes.recorderHeight = app.layout.windowH - kStatusBarHeight - y;
        layOut();
    }
    void moveMouse(int x, int y) {
        app.draw.mouseX = x;
        app.draw.mouseY = y;
    }

    // What all drawing reads of the sound; each frame takes it anew.
    void takeSnapshot() { takeFrameSnapshot(engine, app.scope, *retuner, app.snapshot); }

    // A voice that sounds now, in the engine and in a new snapshot.
    Voice& addVoice(double hz, float pan, std::int32_t channel = 0, std::int32_t tuningTag = 0) {
        Voice voice;
        voice.frequency = hz;
        voice.pan = pan;
        voice.channel = channel;
        voice.tuningTag = tuningTag;
        voice.volume = 0.5f;
        voice.startTime = 0.0;
        voice.endTime = 1000.0;
        engine.voices.push_back(voice);
        takeSnapshot();
        return engine.voices.back();
    }

    // The widget with this label; the test fails and gets an empty one if there is none.
    [[nodiscard]] const Widget& widget(const std::string& label) const {
        const Widget* found = findWidget(app, label);
        EXPECT_NE(found, nullptr) << label;
        static const Widget none;
        return found == nullptr ? none : *found;
    }

    [[nodiscard]] Picture picture() const { return screen->picture(); }
    [[nodiscard]] SDL_Color at(int x, int y) const { return picture().at(x, y); }
    void clear(SDL_Color color = kBackdrop) { screen->clear(color); }

    std::unique_ptr<Offscreen> screen;
    SynthEngine engine;
    MidiFile midi;
    PcmStream pcm;
    std::unique_ptr<SacredFft> retuner;  // too large for a stack
    OutputGains gains;
    AppState app{engine, {engine, midi, pcm, *retuner}, gains};
};

}  // namespace veloria::test
