#include "views/sacred/sacred_panel.h"

#include "toolkit/primitives.h"
#include "toolkit/rect.h"
#include "views/sacred/sacred_geometry.h"
#include "views/scene/vitruvian_assets.h"
#include "views/shared/coloured_notes.h"
#include "views/shared/research_pages.h"

namespace veloria {

namespace {

constexpr SDL_Color kTitleColor{160, 220, 180, 255};
constexpr int kPageLeft = 12;  // of the text in the body
constexpr Uint8 kPageBackdropAlpha = 35;

// As high as the body and in its middle; fainter than elsewhere, since text lies over it.
void drawPageBackdrop(const DrawContext& context, const SDL_Rect& body, SDL_Texture* backdrop) {
    if (backdrop == nullptr) return;
    const SDL_Rect square{body.x + (body.w - body.h) / 2, body.y, body.h, body.h};
    SDL_SetTextureAlphaMod(backdrop, kPageBackdropAlpha);
    SDL_RenderCopy(context.renderer, backdrop, nullptr, &square);
    SDL_SetTextureAlphaMod(backdrop, kBackdropAlpha);
}

}  // namespace

void drawSacredPanel(const DrawContext& context, const PanelState& panel, SacredState& state,
                     const FrameSnapshot& snapshot, std::int32_t spectrumPalette, float time,
                     SDL_Texture* backdrop) {
    PanelStyle style;
    style.titleColor = kTitleColor;
    style.titleReserve = kInfoTitleReserve;
    style.info = state.sacredResearchMode ? InfoBox::On : InfoBox::Off;
    const char* title =
        state.sacredResearchMode ? "SACRED GEOMETRY  [Research]" : "SACRED GEOMETRY  [Enneagram]";
    drawPanel(context, panel, title, style, [&](const PanelLayout& layout) {
        if (state.sacredResearchMode) {
            drawPageBackdrop(context, layout.body, backdrop);
            drawResearchPage(context, layout.body, layout.body.x + kPageLeft, sacredPage, state.sacredScroll);
            return;
        }
        drawSacredGeometry(context, layout.body, colouredNotes(snapshot.notes, spectrumPalette), time,
                           backdrop);
    });
}

bool sacredTitlePress(SacredState& state, const PanelLayout& panel, int x, int y) {
    if (!contains(panel.info, x, y)) return false;
    state.sacredResearchMode = !state.sacredResearchMode;
    return true;
}

void sacredWheel(SacredState& state, int wheel) {
    if (state.sacredResearchMode) scrollResearchPage(state.sacredScroll, wheel);
}

}  // namespace veloria
