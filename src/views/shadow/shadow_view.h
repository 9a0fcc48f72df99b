// The floating panel "SHADOW": a grid by which the Shadow voices are played, and a page of text.
#pragma once

#include <SDL.h>

#include <array>
#include <cstdint>

#include "engine/synth_engine.h"
#include "toolkit/draw_context.h"
#include "toolkit/panel_frame.h"
#include "views/shared/frame_snapshot.h"

namespace veloria {

struct ShadowState {
    std::int32_t shadowPage = 0;  // 0 "666", the grid; 1 "555", the text
};

// The tabs of the two pages in the title bar, as drawn and as hit. The maximise box lies over all but the
// left 27 pixels of the second one, and takes the presses there.
using ShadowTabs = std::array<SDL_Rect, 2>;
[[nodiscard]] ShadowTabs shadowTabs(const SDL_Rect& frame);
[[nodiscard]] int shadowTabAt(const ShadowTabs& tabs, int x, int y);  // -1 for none

// Twelve columns and eighteen rows. Pixels; a body too small for a cell of one pixel has cells of none, which
// are neither drawn nor hit.
struct ShadowGrid {
    int gridX = 0;
    int gridY = 0;
    int cellW = 0;  // from column to column; the cell itself is two less, also below
    int cellH = 0;
};
[[nodiscard]] ShadowGrid shadowGrid(const SDL_Rect& body);

// The cell at a point, 0 to 215 row by row, the gap on its right and below included; -1 outside the grid. The
// cell is an index into the Shadow table.
[[nodiscard]] int shadowCellAt(const ShadowGrid& grid, int x, int y);

// False for the 36 cells whose number belongs to the Avatar tables, and outside 0 to 215.
[[nodiscard]] bool shadowCellPlayable(int cell);

// The panel with the page that is chosen; nothing while it is closed. What is switched on comes from the
// snapshot; `time` is the view clock. Main thread, as all below.
void drawShadowPanel(const DrawContext& context, const PanelState& panel, const ShadowState& state,
                     const FrameSnapshot& snapshot, float time);

// A left press in the title bar of a panel with this frame: true when it chose a page.
bool shadowTitlePress(ShadowState& state, const SDL_Rect& frame, int x, int y);

// A left press elsewhere in the panel: true when it switched a Shadow voice on or off.
bool shadowBodyPress(const ShadowState& state, const SDL_Rect& body, SynthEngine& engine, int x, int y);

}  // namespace veloria
