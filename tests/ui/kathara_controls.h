// The controls of the Kathara scene by their numbers, worked out anew for both hosts.
#pragma once

#include <string>
#include <vector>

#include "platform/fake/fake_platform.h"
#include "tests/ui/events.h"
#include "views/kathara/kathara_host.h"

namespace veloria::test {

// One host with its controls on the screen.
struct HostPlaces {
    SDL_Rect scene;
    std::vector<std::string> labels;
    std::vector<SDL_Rect> buttons;
    std::vector<SDL_Rect> trackHits;
    std::vector<SDL_Rect> tracks;
    float fovWidth;
    SDL_Rect objectBox;  // takes presses on rows
    int firstRowY;
    SDL_Rect coordinates;
};

inline HostPlaces mainViewPlaces(const SDL_Rect& view) {
    HostPlaces places{{view.x, view.y + 26, view.w, view.h - 54},
                      {"Front", "Top", "Side", "In", "Auto", "Hz", "Exp"},
                      {},
                      {},
                      {},
                      9.0f,
                      {view.x + 4, view.y + 52, 134, 164},
                      view.y + 54,
                      {view.x + 6, view.y + 222, 130, 14}};
    for (int i = 0; i < 7; ++i)
        places.buttons.push_back({view.x + view.w - 319 + 45 * i, view.y + 4, 42, 18});
    const int stripY = view.y + view.h - 28;
    for (int i = 0; i < 4; ++i) {
        const int x = view.x + 4 + i * (view.w - 20) / 4 + 24;
        const int w = (view.w - 20) / 4 - 40;
        places.tracks.push_back({x, stripY + 11, w, 6});
        places.trackHits.push_back({x - 4, stripY, w + 9, 24});  // the splitter has the last four rows
    }
    return places;
}

inline HostPlaces panelPlaces(const SDL_Rect& panel) {
    HostPlaces places{{panel.x + 2, panel.y + 24, panel.w - 4, panel.h - 74},
                      {"Front", "Top", "Side", "Inside", "Auto", "Hz"},
                      {},
                      {},
                      {},
                      4.0f,
                      {panel.x + 6, panel.y + 50, 134, 164},
                      panel.y + 52,
                      {panel.x + 8, panel.y + 220, 130, 14}};
    for (int i = 0; i < 6; ++i)
        places.buttons.push_back({panel.x + 6 + 46 * i, panel.y + panel.h - 46, 42, 16});
    const int stripY = panel.y + panel.h - 26;
    for (int i = 0; i < 4; ++i) {
        const int x = panel.x + 6 + i * (panel.w - 24) / 4 + 24;
        const int w = (panel.w - 24) / 4 - 40;
        places.tracks.push_back({x, stripY + 9, w, 6});
        places.trackHits.push_back({x - 4, stripY, w + 9, 24});
    }
    return places;
}

// A window of 1280 by 1080 with the main view, and the panel over it when it is open.
class KatharaInput : public InputTest {
  protected:
    KatharaInput() : InputTest(1280, 1080) { platform::fakePlatform().reset(); }

    KatharaViewState& view() { return app.kathara.view; }
    HostPlaces mainPlaces() { return mainViewPlaces(app.layout.centre); }
    HostPlaces openPanel() {
        if (!panel(kKatharaPanel).open) togglePanel(app.panels, kKatharaPanel);
        frame();
        return panelPlaces(panel(kKatharaPanel).rect);
    }
    // Both hosts, the panel last: while it is open it covers much of the main view.
    template <typename Check>
    void inBothHosts(const Check& check) {
        check(mainPlaces());
        check(openPanel());
    }
    // Presses at the four inner corners of the rectangle act, those one pixel outside its edges do not.
    template <typename Acts>
    void expectHitArea(const SDL_Rect& rect, const std::string& what, const Acts& acts) {
        const int right = rect.x + rect.w - 1;
        const int bottom = rect.y + rect.h - 1;
        EXPECT_TRUE(acts(rect.x, rect.y)) << what;
        EXPECT_TRUE(acts(right, rect.y)) << what;
        EXPECT_TRUE(acts(rect.x, bottom)) << what;
        EXPECT_TRUE(acts(right, bottom)) << what;
        EXPECT_FALSE(acts(rect.x - 1, rect.y)) << what << " left";
        EXPECT_FALSE(acts(right + 1, rect.y)) << what << " right";
        EXPECT_FALSE(acts(rect.x, rect.y - 1)) << what << " above";
        EXPECT_FALSE(acts(rect.x, bottom + 1)) << what << " below";
    }
};

}  // namespace veloria::test
