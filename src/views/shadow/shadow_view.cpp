#include "views/shadow/shadow_view.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "engine/control.h"
#include "frequency/classify.h"
#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "toolkit/rect.h"
#include "toolkit/text.h"
#include "views/shadow/shadow_page.h"
#include "views/shared/pulse.h"

namespace veloria {

namespace {

constexpr int kColumns = 12;
constexpr int kRows = 18;
static_assert(kColumns * kRows == kShadowIndexCount);
constexpr int kCellGap = 2;

constexpr int kTabW = 40;
constexpr int kTabH = 16;
constexpr int kTabPitch = 43;
constexpr int kTabsFromRight = 112;
constexpr int kTitleReserve = 114;
constexpr std::array<const char*, 2> kTabNames = {"666", "555"};
constexpr SDL_Color kTabOn{120, 60, 60, 220};
constexpr SDL_Color kTabOff{60, 60, 60, 220};
constexpr SDL_Color kTabTextOn{255, 200, 80, 255};
constexpr SDL_Color kTabTextOff{140, 140, 140, 255};

constexpr SDL_Color kTitleColour{240, 120, 120, 255};
constexpr SDL_Color kCloseColour{180, 60, 60, 220};
constexpr SDL_Color kMaximiseColour{80, 80, 80, 220};
constexpr SDL_Color kMaximiseGlyph{200, 200, 200, 255};

constexpr SDL_Color kHeadline{220, 80, 80, 200};
constexpr SDL_Color kHint{160, 155, 180, 180};
constexpr SDL_Color kFooter{160, 155, 180, 160};
constexpr SDL_Color kAvatarFill{60, 55, 70, 140};
constexpr SDL_Color kAvatarEdge{100, 90, 120, 100};
constexpr SDL_Color kAvatarText{120, 110, 140, 120};
constexpr SDL_Color kAvatarMark{180, 140, 60, 100};
constexpr SDL_Color kWhite{255, 255, 255, 255};
constexpr int kOnAlpha = 180;
constexpr int kOffAlpha = 200;
constexpr int kOffDarkness = 5;  // what a colour is divided by
constexpr int kOffTextAlpha = 160;

// By digital root, from 1 on.
constexpr std::array<SDL_Color, 9> kRootColours = {{
    {220, 180, 60, 255},
    {60, 180, 220, 255},
    {220, 160, 50, 255},
    {180, 50, 50, 255},
    {50, 180, 50, 255},
    {180, 120, 220, 255},
    {60, 200, 160, 255},
    {200, 100, 60, 255},
    {220, 200, 60, 255},
}};

struct Cell {
    SDL_Rect rect{};
    int index = 0;
    int code = 0;  // 111 to 666
    bool on = false;
};

Uint8 raised(Uint8 channel, int amount) {
    return static_cast<Uint8>(std::min(channel + amount, 255));
}

SDL_Color cellColour(const Cell& cell) {
    SDL_Color colour = kRootColours[static_cast<std::size_t>(digitalRoot(cell.code)) - 1];
    const int group = shadowGroup(cell.index);
    if (group == 1) colour.g = raised(colour.g, 30);
    if (group == 2) colour.b = raised(colour.b, 40);
    return colour;
}

SDL_Color darkened(SDL_Color colour) {
    const auto part = [](Uint8 channel) { return static_cast<Uint8>(channel / kOffDarkness); };
    return {part(colour.r), part(colour.g), part(colour.b), kOffAlpha};
}

// An Avatar number among the Shadow ones.
void drawAvatarCell(const DrawContext& context, const Cell& cell) {
    TTF_Font* font = context.fonts->fontTiny;
    const int y = cell.rect.y + 1;
    fillRect(context.renderer, cell.rect, kAvatarFill);
    outlineRect(context.renderer, cell.rect, kAvatarEdge);
    DrawText(context, std::to_string(cell.code), cell.rect.x + 2, y, font, kAvatarText);
    DrawText(context, "AVT", cell.rect.x + cell.rect.w + kCellGap - 24, y, font, kAvatarMark);
}

void drawShadowCell(const DrawContext& context, const Cell& cell, float pulse) {
    const auto pulsed = [pulse](float full) { return static_cast<int>(pulse * full); };
    const SDL_Color colour = cellColour(cell);
    const bool equalDigits = cell.code % 111 == 0;
    const SDL_Rect& rect = cell.rect;
    fillRect(context.renderer, rect, cell.on ? withAlpha(colour, kOnAlpha) : darkened(colour));
    if (equalDigits) {
        const SDL_Rect frame{rect.x - 1, rect.y - 1, rect.w + 2, rect.h + 2};
        outlineRect(context.renderer, frame, withAlpha(colour, pulsed(180.0f)));
    }
    if (cell.on) outlineRect(context.renderer, rect, withAlpha(kWhite, pulsed(120.0f)));
    const int offAlpha = kOffTextAlpha + (equalDigits ? pulsed(60.0f) : 0);
    DrawText(context, std::to_string(cell.code), rect.x - 10 + rect.w / 2, rect.y + 2,
             context.fonts->fontTiny, cell.on ? kWhite : withAlpha(colour, offAlpha));
}

Cell cellOf(const ShadowGrid& grid, int index, bool on) {
    const SDL_Rect rect{grid.gridX + index % kColumns * grid.cellW,
                        grid.gridY + index / kColumns * grid.cellH, grid.cellW - kCellGap,
                        grid.cellH - kCellGap};
    return {rect, index, static_cast<int>(shadowFrequency(static_cast<std::uint32_t>(index))), on};
}

void drawCells(const DrawContext& context, const ShadowGrid& grid,
               const std::array<bool, kShadowIndexCount>& held, float time) {
    if (grid.cellW <= 0 || grid.cellH <= 0) return;
    const float pulse = pulseAt(2.0f * time);
    for (int i = 0; i < kShadowIndexCount; ++i) {
        const Cell cell = cellOf(grid, i, held[static_cast<std::size_t>(i)]);
        if (shadowCellPlayable(i)) {
            drawShadowCell(context, cell, pulse);
        } else {
            drawAvatarCell(context, cell);
        }
    }
}

void drawGridPage(const DrawContext& context, const SDL_Rect& body,
                  const std::array<bool, kShadowIndexCount>& held, float time) {
    TTF_Font* font = context.fonts->fontLabel;
    DrawText(context, "180 Shadow Frequencies (36 Convergence in Avatar)", body.x + 4, body.y + 2, font,
             kHeadline);
    DrawText(context, "Click to toggle  |  Red=444  Green=555  Purple=666", body.x + 4, body.y + 16, font,
             kHint);
    const ShadowGrid grid = shadowGrid(body);
    drawCells(context, grid, held, time);
    // The rows take nearly all of the height, so there is room only where the division leaves 15 or more.
    const int foot = grid.gridY + kRows * grid.cellH;
    if (foot + 18 >= body.y + body.h) return;
    DrawTextUtf8(context, "180 Pure Shadow  |  36 Convergence → Avatar", body.x + 4, foot + 4, font, kFooter);
}

void drawTabs(const DrawContext& context, const PanelLayout& layout, int page) {
    const ShadowTabs tabs = shadowTabs(layout.frame);
    for (std::size_t i = 0; i < tabs.size(); ++i) {
        const bool current = static_cast<int>(i) == page;
        fillRect(context.renderer, tabs[i], current ? kTabOn : kTabOff);
        // In the middle of what the maximise box leaves of the tab.
        SDL_Rect seen = tabs[i];
        seen.w = std::min(seen.w, layout.maximise.x - seen.x);
        DrawTextCentered(context, kTabNames[i], seen, context.fonts->fontLabel,
                         current ? kTabTextOn : kTabTextOff);
    }
}

}  // namespace

ShadowTabs shadowTabs(const SDL_Rect& frame) {
    const int left = frame.x + frame.w - kTabsFromRight;
    return {{{left, frame.y + 2, kTabW, kTabH}, {left + kTabPitch, frame.y + 2, kTabW, kTabH}}};
}

int shadowTabAt(const ShadowTabs& tabs, int x, int y) {
    for (std::size_t i = 0; i < tabs.size(); ++i) {
        if (contains(tabs[i], x, y)) return static_cast<int>(i);
    }
    return -1;
}

ShadowGrid shadowGrid(const SDL_Rect& body) {
    return {body.x + 4, body.y + 34, std::max((body.w - 8) / kColumns, 0),
            std::max((body.h - 38) / kRows, 0)};
}

int shadowCellAt(const ShadowGrid& grid, int x, int y) {
    if (grid.cellW <= 0 || grid.cellH <= 0 || x < grid.gridX || y < grid.gridY) return -1;
    const int column = (x - grid.gridX) / grid.cellW;
    const int row = (y - grid.gridY) / grid.cellH;
    if (column >= kColumns || row >= kRows) return -1;
    return column + kColumns * row;
}

bool shadowCellPlayable(int cell) {
    if (cell < 0 || cell >= kShadowIndexCount) return false;
    return !isConvergence(static_cast<std::uint32_t>(cell));
}

void drawShadowPanel(const DrawContext& context, const PanelState& panel, const ShadowState& state,
                     const FrameSnapshot& snapshot, float time) {
    PanelStyle style;
    style.titleColor = kTitleColour;
    style.closeColor = kCloseColour;
    style.maximiseColor = kMaximiseColour;
    style.maximiseGlyph = kMaximiseGlyph;
    style.titleReserve = kTitleReserve;
    style.titleControls = [&](const PanelLayout& layout) { drawTabs(context, layout, state.shadowPage); };
    const bool grid = state.shadowPage == 0;
    drawPanel(context, panel, grid ? "SHADOW  [666 Frequencies]" : "SHADOW  [555 Geometry]", style,
              [&](const PanelLayout& layout) {
                  if (grid) {
                      drawGridPage(context, layout.body, snapshot.shadowHeld, time);
                  } else {
                      drawShadowPage(context, layout.body, time, 1);
                  }
              });
}

bool shadowTitlePress(ShadowState& state, const SDL_Rect& frame, int x, int y) {
    const int tab = shadowTabAt(shadowTabs(frame), x, y);
    if (tab < 0) return false;
    state.shadowPage = tab;
    return true;
}

bool shadowBodyPress(const ShadowState& state, const SDL_Rect& body, SynthEngine& engine, int x, int y) {
    if (state.shadowPage != 0) return false;
    const int cell = shadowCellAt(shadowGrid(body), x, y);
    if (!shadowCellPlayable(cell)) return false;
    toggleShadow(engine, static_cast<std::uint32_t>(cell));
    return true;
}

}  // namespace veloria
