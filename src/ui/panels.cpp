#include "ui/panels.h"

#include <algorithm>

#include "toolkit/panel_input.h"

namespace veloria {

namespace {

constexpr std::array<SDL_Rect, kPanelCount> kDefaultRects = {{
    {100, 100, 360, 360},
    {160, 100, 360, 360},
    {100, 100, 560, 380},
    {160, 80, 420, 420},
    {200, 120, 420, 420},
    {240, 60, 520, 560},
    {50, 50, 600, 220},
    {180, 80, 480, 520},
}};

}  // namespace

FloatingPanels::FloatingPanels() {
    for (std::size_t id = 0; id < panels.size(); ++id)
        panels[id].rect = kDefaultRects[id];
}

void raisePanel(FloatingPanels& panels, int id) {
    const auto place = std::find(panels.panelStack.begin(), panels.panelStack.end(), id);
    if (place != panels.panelStack.end()) std::rotate(panels.panelStack.begin(), place, place + 1);
}

void closePanel(FloatingPanels& panels, int id) {
    PanelState& panel = panels.panels[static_cast<std::size_t>(id)];
    panel.open = false;
    panel.maximised = false;
    panel.dragging = false;
}

void togglePanel(FloatingPanels& panels, int id) {
    PanelState& panel = panels.panels[static_cast<std::size_t>(id)];
    if (panel.open) {
        closePanel(panels, id);
        return;
    }
    panel.open = true;
    raisePanel(panels, id);
}

int panelAt(const FloatingPanels& panels, int windowW, int windowH, int x, int y) {
    for (const int id : panels.panelStack) {
        if (panelContains(panels.panels[static_cast<std::size_t>(id)], windowW, windowH, x, y)) return id;
    }
    return -1;
}

}  // namespace veloria
