#include <string>

#include "engine/reports.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "ui/draw.h"

namespace veloria {

namespace {

constexpr int kTextX = 20;

std::string statusText(const AppState& app) {
    std::string text = "Veloria V3.6 | 342 = 162 Avatar + 180 Shadow | ";
    if (!app.transport.fileLabel.empty()) text += app.transport.fileLabel + " | ";
    text += std::to_string(activeVoiceCount(app.snapshot.engine)) + " voices | ";
    return text + "[1-4] Mode | [Q-R] Wave | [F] Filter | Stereo: L=Reflect R=Rotate C=Shadow";
}

}  // namespace

void drawStatusBar(const AppState& app) {
    const SDL_Rect& bar = app.layout.statusBar;
    fillRect(app.renderer, bar, app.theme.themeTopBar);
    hLine(app.renderer, bar.x, bar.x + bar.w - 1, bar.y, app.theme.themeBorder);
    TTF_Font* font = app.fonts.fontLabel;
    const int height = font == nullptr ? 0 : TTF_FontHeight(font);
    DrawTextUtf8(app.draw, statusText(app), kTextX, bar.y + (bar.h - height) / 2, font, app.theme.themeGold);
}

}  // namespace veloria
