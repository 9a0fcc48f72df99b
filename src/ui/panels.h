// The eight floating panels: their order, their places and what they are called.
#pragma once

#include <array>

#include "toolkit/panel_frame.h"

namespace veloria {

enum PanelId : int {
    kLotusPanel,
    kPolarPanel,
    kSpectrumPanel,
    kSacredPanel,
    kHarmonicsPanel,
    kKatharaPanel,
    kScopePanel,
    kShadowPanel,
    kPanelCount
};

struct FloatingPanels {
    std::array<PanelState, kPanelCount> panels;                       // by PanelId, each at its default place
    std::array<int, kPanelCount> panelStack{7, 6, 5, 4, 3, 2, 1, 0};  // ids, the front one first

    FloatingPanels();
};

// Moves a panel to the front; the others keep their order.
void raisePanel(FloatingPanels& panels, int id);

// Closes a panel: it is no longer maximised, nor held.
void closePanel(FloatingPanels& panels, int id);

// Opens a panel in front of the others, or closes it.
void togglePanel(FloatingPanels& panels, int id);

// The front open panel under a point; -1 for none.
[[nodiscard]] int panelAt(const FloatingPanels& panels, int windowW, int windowH, int x, int y);

}  // namespace veloria
