#include "views/scene/scene_paint.h"

#include <string>
#include <string_view>

#include "base/format.h"
#include "frequency/tables.h"
#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "views/scene/diamond.h"
#include "views/scene/geometry/helix.h"
#include "views/scene/geometry/solfeggio_nodes.h"

namespace veloria {

namespace {

constexpr SDL_Color kHole{14, 12, 22, 255};  // the dark middle of a node; its alpha is the state's
constexpr SDL_Color kHertz{245, 240, 215, 255};
constexpr SDL_Color kWord{180, 175, 200, 255};
constexpr SDL_Color kDigitDisc{90, 80, 110, 90};
constexpr SDL_Color kDigitText{200, 190, 220, 175};
constexpr SDL_Color kDiamondHalo{255, 80, 80, 255};  // of all three groups
constexpr SDL_Color kDiamondEdge{255, 255, 255, 255};
constexpr SDL_Color kDiamondText{255, 255, 255, 245};
constexpr SDL_Color kIdleDiamondText{180, 170, 170, 60};
constexpr int kTextRise = 5;  // pixels from a label's top to the middle of what it names

// One look at an item's state: the alpha of a part, active or idle.
int alphaOf(const SceneItem& item, int active, int idle) {
    return item.active != 0 ? active : idle;
}

// Whether a label of this size may be drawn. What sounds always may, and takes no room from the others.
bool mayLabel(const SceneItem& item, int x, int y, SDL_Point size, SceneLabels& labels) {
    return item.active != 0 || placeLabel(labels, {x, y, size.x, size.y});
}

// Beside the item, on the side that is nearer to the rectangle's edge.
void labelBeside(const SceneCanvas& canvas, const SceneItem& item, std::string_view text, int gap,
                 SDL_Color colour, SceneLabels& labels) {
    const SDL_Point size = measureText(canvas.labelFont(), text);
    const bool rightHalf = item.x > canvas.rect.x + canvas.rect.w / 2;
    const int x = rightHalf ? item.x - size.x - item.size - gap : item.x + item.size + gap;
    const int y = item.y - kTextRise;
    if (mayLabel(item, x, y, size, labels)) DrawText(canvas.context, text, x, y, canvas.labelFont(), colour);
}

// Above or below the item, in its middle.
void labelCentred(const SceneCanvas& canvas, const SceneItem& item, std::string_view text, int y,
                  SDL_Color colour, SceneLabels& labels) {
    const SDL_Point size = measureText(canvas.labelFont(), text);
    const int x = item.x - size.x / 2;
    if (mayLabel(item, x, y, size, labels)) DrawText(canvas.context, text, x, y, canvas.labelFont(), colour);
}

void paintLine(const SceneCanvas& canvas, const SceneItem& item) {
    SDL_Point from{item.x, item.y};
    SDL_Point to{item.x2, item.y2};
    if (!cutToSurroundings(canvas.rect, from, to)) return;
    if (item.kind == SceneItemKind::ThickLine) {
        drawThickLine2d(canvas.renderer(), from.x, from.y, to.x, to.y, item.colour, item.size);
    } else {
        drawLine(canvas.renderer(), from.x, from.y, to.x, to.y, item.colour);
    }
}

double avatarFrequency(int tag) {
    if (tag < kRotationTag) return reflectionFrequency(static_cast<std::uint32_t>(tag));
    return rotationFreqs[static_cast<std::size_t>(tag - kRotationTag)];
}

void paintDot(const SceneCanvas& canvas, const SceneItem& item, SceneLabels& labels) {
    if (item.active != 0) {
        fillCircle(canvas.renderer(), item.x, item.y, item.size + 5,
                   withAlpha(item.colour, canvas.pulsed(25)));
    }
    fillCircle(canvas.renderer(), item.x, item.y, item.size, item.colour);
    if (!canvas.view.showHz || canvas.labelFont() == nullptr) return;
    const int hz = static_cast<int>(avatarFrequency(item.tag));
    if (hz < 1) return;
    labelBeside(canvas, item, formatText("%d", hz), 2, withAlpha(item.colour, alphaOf(item, 245, 90)),
                labels);
}

void paintNodeDiscs(const SceneCanvas& canvas, const SceneItem& item) {
    SDL_Renderer* renderer = canvas.renderer();
    if (item.active != 0) {
        fillCircle(renderer, item.x, item.y, item.size + 8, withAlpha(item.colour, canvas.pulsed(35)));
        fillCircle(renderer, item.x, item.y, item.size + 4, withAlpha(item.colour, canvas.pulsed(60)));
    }
    fillCircle(renderer, item.x, item.y, item.size, withAlpha(item.colour, alphaOf(item, 230, 140)));
    fillCircle(renderer, item.x, item.y, item.size - 3, withAlpha(kHole, alphaOf(item, 190, 215)));
}

void paintSolfeggioNode(const SceneCanvas& canvas, const SceneItem& item, SceneLabels& labels) {
    paintNodeDiscs(canvas, item);
    const auto index = static_cast<std::size_t>(item.tag);
    const SolfeggioNode& node = solfeggioNodes[index];
    TTF_Font* hebrew = canvas.hebrewFont();
    if (hebrew != nullptr) {
        const int half = measureTextUtf8(hebrew, node.letter).x / 2;
        DrawTextUtf8(canvas.context, node.letter, item.x - half, item.y - 8, hebrew,
                     withAlpha(item.colour, alphaOf(item, 255, 180)));
    }
    if (canvas.labelFont() == nullptr) return;
    const std::string hertz = formatText("%d Hz", static_cast<int>(solfeggio12[index]));
    labelCentred(canvas, item, hertz, item.y - item.size - 14, withAlpha(kHertz, alphaOf(item, 255, 160)),
                 labels);
    const std::string word = formatText("%s %d", node.name, node.ebced);
    labelCentred(canvas, item, word, item.y + item.size + 2, withAlpha(kWord, alphaOf(item, 220, 115)),
                 labels);
    labelCentred(canvas, item, realmName(item.tag), item.y + item.size + 14,
                 withAlpha(realmColour(item.tag), alphaOf(item, 160, 70)), labels);
}

void paintDigit(const SceneCanvas& canvas, const SceneItem& item, SceneLabels& labels) {
    fillCircle(canvas.renderer(), item.x, item.y, item.size, kDigitDisc);
    fillCircle(canvas.renderer(), item.x, item.y, item.size - 2, withAlpha(kHole, 185));
    if (canvas.labelFont() == nullptr) return;
    labelCentred(canvas, item, formatText("%d", item.tag - kEnneagramTag + 1), item.y - kTextRise, kDigitText,
                 labels);
}

std::string diamondText(const SceneCanvas& canvas, int code) {
    std::string codon;
    if (canvas.view.helixLabels) codon = codonLabel(code);
    return codon.empty() ? formatText("%d", code) : codon;
}

void paintDiamond(const SceneCanvas& canvas, const SceneItem& item, SceneLabels& labels) {
    SDL_Renderer* renderer = canvas.renderer();
    if (item.active != 0) {
        outlineDiamond(renderer, item.x, item.y, item.size + 10, withAlpha(kDiamondHalo, canvas.pulsed(20)));
        outlineDiamond(renderer, item.x, item.y, item.size + 5, withAlpha(kDiamondHalo, canvas.pulsed(40)));
    }
    fillDiamond(renderer, item.x, item.y, item.size, item.colour);
    outlineDiamond(renderer, item.x, item.y, item.size, withAlpha(kDiamondEdge, alphaOf(item, 140, 50)));
    if (!canvas.view.showHz || canvas.labelFont() == nullptr) return;
    const int code = static_cast<int>(shadowFrequency(static_cast<std::uint32_t>(item.tag - kShadowTag)));
    labelBeside(canvas, item, diamondText(canvas, code), 4,
                item.active != 0 ? kDiamondText : kIdleDiamondText, labels);
}

}  // namespace

void paintSceneItem(const SceneCanvas& canvas, const SceneItem& item, SceneLabels& labels) {
    switch (item.kind) {
        case SceneItemKind::Line:
        case SceneItemKind::ThickLine:
            paintLine(canvas, item);
            break;
        case SceneItemKind::Dot:
            paintDot(canvas, item, labels);
            break;
        case SceneItemKind::Node:
            if (item.tag < kEnneagramTag) {
                paintSolfeggioNode(canvas, item, labels);
            } else {
                paintDigit(canvas, item, labels);
            }
            break;
        case SceneItemKind::Diamond:
            paintDiamond(canvas, item, labels);
            break;
    }
}

}  // namespace veloria
