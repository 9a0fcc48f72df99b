#include "views/kathara/kathara_layout.h"

#include <algorithm>

#include "toolkit/rect.h"

namespace veloria {

namespace {

constexpr int kToolbarHeight = 26;
constexpr int kMainRows = 54;  // of the main view that are not the scene's
constexpr int kLowestScene = 40;
constexpr int kMainStripHeight = 28;
constexpr int kMainStripHit = 24;  // below lies the recorder's splitter
constexpr int kPanelRows = 48;     // of the panel's body that are not the scene's
constexpr int kPanelStripHeight = 24;
constexpr int kPanelButtonsFromBottom = 46;
constexpr int kPanelStripFromBottom = 26;

constexpr int kTrackFromCaption = 24;
constexpr int kTrackLoss = 40;  // of a slider's quarter
constexpr int kTrackHeight = 6;
constexpr int kTrackReach = 4;  // beyond the track's ends, for a press; the last column takes it as well

// Four sliders side by side in the strip, from `left` on, `room` pixels for all.
void placeSliders(KatharaLayout& layout, int left, int room, int hitHeight) {
    const SDL_Rect& strip = layout.strip;
    for (int i = 0; i < kKatharaSliderCount; ++i) {
        const auto at = static_cast<std::size_t>(i);
        const int x = left + i * room / kKatharaSliderCount;
        layout.captions[at] = {x, strip.y + strip.h / 2};
        const int width = room / kKatharaSliderCount - kTrackLoss;
        if (width <= 0) continue;
        const SDL_Rect track{x + kTrackFromCaption, strip.y + (strip.h - kTrackHeight) / 2, width,
                             kTrackHeight};
        layout.tracks[at] = track;
        layout.trackHits[at] = {track.x - kTrackReach, strip.y, track.w + 2 * kTrackReach + 1, hitHeight};
    }
}

}  // namespace

std::span<const KatharaButtonRow> katharaButtons(KatharaHost host) {
    if (host == KatharaHost::MainView) return kMainViewButtons;
    return kPanelButtons;
}

const std::array<KatharaSlider, kKatharaSliderCount>& katharaSliders(KatharaHost host) {
    return host == KatharaHost::MainView ? kMainViewSliders : kPanelSliders;
}

KatharaLayout katharaMainLayout(const SDL_Rect& mainView) {
    const auto [x, y, w, h] = mainView;
    KatharaLayout layout;
    layout.host = KatharaHost::MainView;
    layout.area = mainView;
    layout.toolbar = {x, y, w, kToolbarHeight};
    layout.scene = {x, y + kToolbarHeight, w, std::max(h - kMainRows, kLowestScene)};
    layout.strip = {x, layout.scene.y + layout.scene.h, w, kMainStripHeight};
    for (int i = 0; i < static_cast<int>(kMainViewButtons.size()); ++i)
        layout.buttons[static_cast<std::size_t>(i)] = {x + w - 319 + 45 * i, y + 4, 42, 18};
    placeSliders(layout, x + 4, w - 20, kMainStripHit);
    layout.objectSet = objectSetLayout(layout.scene);
    return layout;
}

KatharaLayout katharaPanelLayout(const PanelLayout& panel) {
    const auto [x, y, w, h] = panel.frame;
    KatharaLayout layout;
    layout.host = KatharaHost::Panel;
    layout.area = panel.body;
    layout.scene = {panel.body.x, panel.body.y, panel.body.w, std::max(panel.body.h - kPanelRows, 0)};
    layout.strip = {panel.body.x, y + h - kPanelStripFromBottom, panel.body.w, kPanelStripHeight};
    for (int i = 0; i < static_cast<int>(kPanelButtons.size()); ++i)
        layout.buttons[static_cast<std::size_t>(i)] = {x + 6 + 46 * i, y + h - kPanelButtonsFromBottom, 42,
                                                       16};
    placeSliders(layout, x + 6, w - 24, kPanelStripHeight);
    layout.objectSet = objectSetLayout(layout.scene);
    return layout;
}

int katharaButtonAt(const KatharaLayout& layout, int x, int y) {
    for (std::size_t i = 0; i < katharaButtons(layout.host).size(); ++i) {
        if (contains(layout.buttons[i], x, y)) return static_cast<int>(i);
    }
    return -1;
}

int katharaSliderAt(const KatharaLayout& layout, int x, int y) {
    for (std::size_t i = 0; i < layout.trackHits.size(); ++i) {
        if (contains(layout.trackHits[i], x, y)) return static_cast<int>(i);
    }
    return -1;
}

}  // namespace veloria
