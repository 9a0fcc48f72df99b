#include <iterator>

#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "ui/draw.h"

namespace veloria {

namespace {

struct AboutLine {
    int y;
    const char* text;
    SDL_Color color;
};

constexpr SDL_Color kFact{150, 150, 220, 185};
constexpr SDL_Color kCredit{120, 120, 180, 150};
constexpr AboutLine kAboutLines[] = {
    {106, "V3.6", {180, 180, 220, 200}},
    {129, "342 Frequency System", {130, 200, 255, 210}},
    {146, "162 Avatar (81 Ref + 81 Rot)", kFact},
    {163, "180 Shadow (216-36 Conv)", kFact},
    {180, "Stereo: L=Reflect R=Rotate", kFact},
    {197, "Binaural Beat Engine (auto)", {180, 130, 255, 200}},
    {214, "Fib/Pi/Tesla/PHI Harmonics", kFact},
    {231, "Sacred Optimizer (Pure Snap)", kFact},
    {248, "256 Voice Polyphony", kFact},
    {265, "MIDI Recorder + WAV Export", kFact},
    {282, "Tesla 3D + Kathara View", kFact},
    {305, "Written in C++20 with SDL2", kCredit},
    {322, "SDL2_ttf for text, minimp3 for MP3", kCredit},
};

constexpr int kTextX = 14;
constexpr int kTitleY = 87;
constexpr SDL_Color kTitleColor{185, 195, 255, 235};

}  // namespace

int aboutEnd() {
    return std::end(kAboutLines)[-1].y + kLabelHeight;
}

void drawSysTab(const AppState& app) {
    if (!leftPanelShown(app.layout)) return;
    const WindowLayout& layout = app.layout;
    const ClipGuard clip(app.renderer, leftPanelView(layout));
    DrawText(app.draw, "Veloria", kTextX, leftPanelY(layout, kTitleY), app.fonts.fontHeading, kTitleColor);
    hLine(app.renderer, 9, 228, leftPanelY(layout, 123), withAlpha(app.theme.themeBorder, 100));
    for (const AboutLine& line : kAboutLines)
        DrawText(app.draw, line.text, kTextX, leftPanelY(layout, line.y), app.fonts.fontLabel, line.color);
}

}  // namespace veloria
