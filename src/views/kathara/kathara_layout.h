// Where the controls round the Kathara scene stand, in the main view and in the floating panel. Drawing and
// hit test both go by it.
#pragma once

#include <SDL.h>

#include <array>
#include <span>

#include "toolkit/panel_frame.h"
#include "views/scene/object_set.h"

namespace veloria {

// The two places in which the scene appears.
enum class KatharaHost { None, MainView, Panel };

enum class KatharaButton { Front, Top, Side, Inside, Auto, Hz, Export };

struct KatharaButtonRow {
    const char* label;
    KatharaButton action;
};
// The main view's, and the panel's, which cannot export. From left to right.
inline constexpr std::array<KatharaButtonRow, 7> kMainViewButtons = {{
    {"Front", KatharaButton::Front},
    {"Top", KatharaButton::Top},
    {"Side", KatharaButton::Side},
    {"In", KatharaButton::Inside},
    {"Auto", KatharaButton::Auto},
    {"Hz", KatharaButton::Hz},
    {"Exp", KatharaButton::Export},
}};
inline constexpr std::array<KatharaButtonRow, 6> kPanelButtons = {{
    {"Front", KatharaButton::Front},
    {"Top", KatharaButton::Top},
    {"Side", KatharaButton::Side},
    {"Inside", KatharaButton::Inside},
    {"Auto", KatharaButton::Auto},
    {"Hz", KatharaButton::Hz},
}};
[[nodiscard]] std::span<const KatharaButtonRow> katharaButtons(KatharaHost host);

inline constexpr int kKatharaSliderCount = 4;

struct KatharaSlider {
    const char* caption;
    float KatharaViewState::*field;
    float low;    // value at the track's left end
    float width;  // of the range, to the right end
};
// The magnification reaches less far in the panel: odd, and kept.
inline constexpr std::array<KatharaSlider, kKatharaSliderCount> kMainViewSliders = {{
    {"AZ", &KatharaViewState::azimuth, -180.0f, 360.0f},
    {"EL", &KatharaViewState::elevation, -89.0f, 178.0f},
    {"ZM", &KatharaViewState::zoom, 0.0f, 15.0f},
    {"FOV", &KatharaViewState::fov, 1.0f, 9.0f},
}};
inline constexpr std::array<KatharaSlider, kKatharaSliderCount> kPanelSliders = {{
    {"AZ", &KatharaViewState::azimuth, -180.0f, 360.0f},
    {"EL", &KatharaViewState::elevation, -89.0f, 178.0f},
    {"ZM", &KatharaViewState::zoom, 0.0f, 15.0f},
    {"FOV", &KatharaViewState::fov, 1.0f, 4.0f},
}};
[[nodiscard]] const std::array<KatharaSlider, kKatharaSliderCount>& katharaSliders(KatharaHost host);

// All in pixels of the window. What sticks out of `area` is neither seen nor hit.
struct KatharaLayout {
    KatharaHost host = KatharaHost::None;
    SDL_Rect area{};                    // all that belongs to this host
    SDL_Rect toolbar{};                 // empty in the panel, whose buttons stand below the scene
    SDL_Rect scene{};                   // of the picture, or of the page in its place
    SDL_Rect strip{};                   // of the sliders
    std::array<SDL_Rect, 7> buttons{};  // as many as katharaButtons(host) has
    std::array<SDL_Point, kKatharaSliderCount> captions{};
    std::array<SDL_Rect, kKatharaSliderCount> tracks{};     // narrow ones are empty
    std::array<SDL_Rect, kKatharaSliderCount> trackHits{};  // empty with their tracks
    ObjectSetLayout objectSet;
};
[[nodiscard]] KatharaLayout katharaMainLayout(const SDL_Rect& mainView);
[[nodiscard]] KatharaLayout katharaPanelLayout(const PanelLayout& panel);

// What lies at a point that is inside `area`; -1 for none.
[[nodiscard]] int katharaButtonAt(const KatharaLayout& layout, int x, int y);
[[nodiscard]] int katharaSliderAt(const KatharaLayout& layout, int x, int y);

}  // namespace veloria
