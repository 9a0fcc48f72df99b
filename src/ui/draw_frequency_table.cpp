#include <algorithm>
#include <cmath>
#include <string>

#include "base/fixed_text.h"
#include "base/format.h"
#include "frequency/classify.h"
#include "frequency/ratio_table.h"
#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "ui/draw.h"
#include "ui/frequency_table.h"
#include "walker/activation.h"

namespace veloria {

namespace {

constexpr int kHeadingY = 87;
constexpr int kHeadingLineY = 101;
constexpr int kColumnLinesTop = 103;
constexpr int kNamesY = 104;
constexpr int kRowsTop = 119;
constexpr int kRowPitch = 15;
constexpr int kPairPitch = 14;
constexpr int kActivationPitch = 13;
constexpr int kGap = 6;  // between the blocks
constexpr int kTextX = 5;
constexpr int kIndentedX = 10;
constexpr int kLineAlpha = 160;

constexpr SDL_Color kNamesColor{140, 140, 160, 140};
constexpr SDL_Color kMultiplierColor{200, 180, 100, 180};

struct ColumnLook {
    const char* heading;
    SDL_Color headingColor;
    std::array<const char*, 4> names;
    SDL_Color rowColor;
};
constexpr std::array<ColumnLook, kTableColumnCount> kColumnLooks = {{
    {"LEFT (REFLECTION)", {255, 160, 80, 200}, {"Hz", "BASE", "TYPE", "MUL"}, {255, 190, 120, 220}},
    {"RIGHT (ROTATION)", {80, 180, 255, 200}, {"Hz", "BASE", "TYPE", "MUL"}, {130, 200, 255, 220}},
    {"SHADOW", {220, 80, 80, 200}, {"Hz", "NM", "DIFF", "MUL"}, {255, 100, 100, 220}},
}};

// Where the four texts of a row begin.
std::array<int, 4> textPlaces(const WindowLayout& layout, int column) {
    constexpr std::array<double, 4> kShares = {0.0, 0.30, 0.55, 0.78};
    const int width = layout.leftWidth / kTableColumnCount;
    std::array<int, 4> places{};
    for (std::size_t i = 0; i < places.size(); ++i)
        places[i] = column * width + 6 + static_cast<int>(kShares[i] * width);
    return places;
}

struct RowText {
    std::array<std::string, 4> texts;
    std::array<SDL_Color, 4> colors;
};

RowText centreRow(const TableVoice& voice) {
    const SDL_Color figure{200, 200, 200, 160};
    return {{formatText("%.0f", voice.frequency), "", "C", ratioLabel(voice.tuningTag)},
            {figure, figure, {160, 160, 180, 140}, kMultiplierColor}};
}

RowText avatarRow(const TableVoice& voice, SDL_Color color) {
    const AvatarBase base = avatarBase(voice.frequency, voice.tuningTag);
    return {{formatText("%.0f", voice.frequency), formatText("%.0f", base.frequency), base.type,
             ratioLabel(voice.tuningTag)},
            {color, color, color, kMultiplierColor}};
}

RowText shadowRow(const TableVoice& voice, SDL_Color color) {
    const double difference = shadowDifference(voice.frequency);
    return {{formatText("%.0f", voice.frequency), shadowSymbol(voice.frequency),
             (std::signbit(difference) ? "" : "+") + fixedText(difference, 1), ratioLabel(voice.tuningTag)},
            {color, {220, 140, 140, 180}, {160, 160, 180, 140}, kMultiplierColor}};
}

RowText rowText(const TableVoice& voice, int column) {
    const SDL_Color color = kColumnLooks[static_cast<std::size_t>(column)].rowColor;
    if (column == kShadowColumn) return shadowRow(voice, color);
    return column == kLeftColumn && voice.centred ? centreRow(voice) : avatarRow(voice, color);
}

int rowLimit(const WindowLayout& layout) {
    return std::max((layout.contentBottom - 129) / kRowPitch, 2);
}

int rowsShownIn(const FrequencyTable& table, int column, int limit) {
    return std::min(static_cast<int>(table.columns[static_cast<std::size_t>(column)].size()), limit);
}

void drawColumn(const AppState& app, const FrequencyTable& table, int column) {
    const ColumnLook& look = kColumnLooks[static_cast<std::size_t>(column)];
    const std::array<int, 4> places = textPlaces(app.layout, column);
    TTF_Font* font = app.fonts.fontLabel;
    const int width = app.layout.leftWidth / kTableColumnCount;
    const ClipGuard clip(app.renderer, {column * width, kHeadingY, width, app.layout.windowH});
    DrawText(app.draw, look.heading, places[0], kHeadingY, font, look.headingColor);
    for (std::size_t i = 0; i < places.size(); ++i)
        DrawText(app.draw, look.names[i], places[i], kNamesY, font, kNamesColor);
    const int rows = rowsShownIn(table, column, rowLimit(app.layout));
    for (int row = 0; row < rows; ++row) {
        const auto& voices = table.columns[static_cast<std::size_t>(column)];
        const RowText text = rowText(voices[static_cast<std::size_t>(row)], column);
        for (std::size_t i = 0; i < places.size(); ++i)
            DrawText(app.draw, text.texts[i], places[i], kRowsTop + kRowPitch * row, font, text.colors[i]);
    }
}

void drawRules(const AppState& app) {
    const SDL_Color color = withAlpha(app.theme.themeBorder, kLineAlpha);
    hLine(app.renderer, kTextX, app.layout.leftWidth - kTextX, kHeadingLineY, color);
    const int bottom = app.layout.contentBottom - 10;
    if (bottom <= kColumnLinesTop) return;
    const int width = app.layout.leftWidth / kTableColumnCount;
    for (int column = 1; column < kTableColumnCount; ++column)
        vLine(app.renderer, column * width, kColumnLinesTop, bottom, color);
}

// From y down; returns where the next block may begin.
int drawPairs(const AppState& app, const std::vector<BinauralPair>& pairs, int y) {
    if (pairs.empty() || y >= app.layout.contentBottom - 40) return y;
    TTF_Font* font = app.fonts.fontLabel;
    hLine(app.renderer, kTextX, app.layout.leftWidth - kTextX, y, {180, 130, 255, 80});
    DrawText(app.draw, formatText("BINAURAL BEATS (%d pairs)", static_cast<int>(pairs.size())), kTextX, y + 4,
             font, {180, 130, 255, 220});
    y += 18;
    for (const BinauralPair& pair : pairs) {
        if (y >= app.layout.contentBottom - 14) break;
        const std::string text = formatText("L:%.0f R:%.0f = ", pair.left, pair.right) +
                                 fixedText(static_cast<double>(pair.beatHz), 1) + "Hz " +
                                 bandName(pair.beatHz);
        DrawText(app.draw, text, kIndentedX, y, font, SelectBandColor(pair.beatHz));
        y += kPairPitch;
    }
    return y + kGap;
}

void drawActivation(const AppState& app, int y) {
    const std::int32_t mode = app.engine->activationMode;
    if (mode <= kActivationOff || y >= app.layout.contentBottom - 60) return;
    TTF_Font* font = app.fonts.fontLabel;
    hLine(app.renderer, kTextX, app.layout.leftWidth - kTextX, y, toColor(kActivationSeparatorColour));
    DrawText(app.draw, activationTitle(mode), kTextX, y + 3, font, toColor(kActivationTitleColour));
    y += 18;
    for (const ActivationLine& line : kActivationLines) {
        if (mode < line.fromMode) continue;
        DrawText(app.draw, line.text, kIndentedX, y, font, toColor(line.colour));
        y += kActivationPitch;
    }
    if (app.engine->dronesOn) {
        DrawText(app.draw, kDroneLine.text, kIndentedX, y, font, toColor(kDroneLine.colour));
    }
}

}  // namespace

void drawFrequencyTable(const AppState& app) {
    if (!leftPanelShown(app.layout)) return;
    const ClipGuard clip(app.renderer, leftPanelClip(app.layout));
    const FrequencyTable table = makeFrequencyTable(app.snapshot.voices);
    drawRules(app);
    int longest = 0;
    for (int column = 0; column < kTableColumnCount; ++column) {
        drawColumn(app, table, column);
        longest = std::max(longest, rowsShownIn(table, column, rowLimit(app.layout)));
    }
    const int y = drawPairs(app, table.pairs, kRowsTop + kRowPitch * longest + kGap);
    drawActivation(app, y);
}

}  // namespace veloria
