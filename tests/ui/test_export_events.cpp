// What the user may do while an export runs, by real events in SDL's queue.
#include "tests/ui/events.h"
#include "ui/export_overlay.h"

namespace veloria {
namespace {

class ExportEventsTest : public test::InputTest {
  protected:
    ExportEventsTest() {
        EXPECT_EQ(SDL_InitSubSystem(SDL_INIT_EVENTS), 0);
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
        app.exporting = true;
        app.recorder.exportProgress = 0.4f;
    }
    ~ExportEventsTest() override {
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
        SDL_QuitSubSystem(SDL_INIT_EVENTS);
    }
    static void push(SDL_Event event) { EXPECT_EQ(SDL_PushEvent(&event), 1); }
    static void pushKey(SDL_Keycode code) {
        SDL_Event event;
        SDL_zero(event);
        event.type = SDL_KEYDOWN;
        event.key.keysym.sym = code;
        push(event);
    }
    static void pushButton(Uint32 type, int x, int y, Uint8 button = SDL_BUTTON_LEFT) {
        push(test::mouseButton(type, x, y, button));
    }
    static void pushQuit() {
        SDL_Event event;
        SDL_zero(event);
        event.type = SDL_QUIT;
        push(event);
    }
    bool goesOn() { return exportGoesOn(app, events); }

    ExportEvents events;
};

TEST_F(ExportEventsTest, EscapeEndsItAndNoOtherKeyDoes) {
    EXPECT_TRUE(goesOn());
    pushKey(SDLK_SPACE);
    pushKey(SDLK_RETURN);
    EXPECT_TRUE(goesOn());
    pushKey(SDLK_ESCAPE);
    EXPECT_FALSE(goesOn());
    EXPECT_TRUE(goesOn()) << "said once";
    EXPECT_TRUE(events.kept.empty()) << "and nobody else hears of the keys";
}

TEST_F(ExportEventsTest, ALeftPressOnTheButtonEndsItAndNoOtherPressDoes) {
    pushButton(SDL_MOUSEBUTTONDOWN, 805, 360);
    pushButton(SDL_MOUSEBUTTONDOWN, 876, 360);
    pushButton(SDL_MOUSEBUTTONDOWN, 640, 360);
    pushButton(SDL_MOUSEBUTTONDOWN, 840, 360, SDL_BUTTON_RIGHT);
    EXPECT_TRUE(goesOn());
    pushButton(SDL_MOUSEBUTTONDOWN, 840, 360);
    EXPECT_FALSE(goesOn());
}

TEST_F(ExportEventsTest, AButtonThatIsNotShownYetTakesNoPress) {
    app.recorder.exportProgress = 0.0f;
    pushButton(SDL_MOUSEBUTTONDOWN, 840, 360);
    EXPECT_TRUE(goesOn());
    pushKey(SDLK_ESCAPE);
    EXPECT_FALSE(goesOn());
}

TEST_F(ExportEventsTest, ClosingTheWindowEndsItAndThenTheProgram) {
    pushQuit();
    EXPECT_FALSE(goesOn());
    EXPECT_TRUE(pollEvents(app)) << "not before it is over";
    giveBackEvents(events);
    EXPECT_FALSE(pollEvents(app));
    EXPECT_TRUE(pollEvents(app)) << "given back once";
}

TEST_F(ExportEventsTest, PressesAreNobodysAndReleasesReachTheWindowAfterwards) {
    const SDL_Rect play = topBarButtonRect(app.layout, kPlayButton);
    int played = 0;
    app.onPlay = [&played] { ++played; };
    pushButton(SDL_MOUSEBUTTONDOWN, play.x + 5, play.y + 5);
    pushButton(SDL_MOUSEBUTTONUP, play.x + 5, play.y + 5);
    EXPECT_TRUE(goesOn());
    ASSERT_EQ(events.kept.size(), 1u);
    EXPECT_EQ(events.kept[0].type, static_cast<Uint32>(SDL_MOUSEBUTTONUP));
    giveBackEvents(events);
    EXPECT_TRUE(events.kept.empty());
    EXPECT_TRUE(pollEvents(app));
    EXPECT_EQ(played, 0);
}

}  // namespace
}  // namespace veloria
