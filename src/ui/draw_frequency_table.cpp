#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

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
constexpr int kGap = 6;               // between the blocks
constexpr int kBlockHeading = 18;     // rows of a block above its lines
constexpr int kColumnLinesFoot = 10;  // pixels that the columns' lines stay above the panel's foot
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

// Where the blocks under the headings begin, unscrolled.
struct TablePlaces {
    int pairsY = 0;
    int activationY = 0;
    int end = 0;
};

int activationHeight(const SynthEngine& engine) {
    if (engine.activationMode <= kActivationOff) return 0;
    const auto lines = std::count_if(
        std::begin(kActivationLines), std::end(kActivationLines),
        [&engine](const ActivationLine& line) { return engine.activationMode >= line.fromMode; });
    return kBlockHeading + kActivationPitch * (static_cast<int>(lines) + (engine.dronesOn ? 1 : 0));
}

TablePlaces tablePlaces(const FrequencyTable& table, const SynthEngine& engine) {
    std::size_t longest = 0;
    for (const auto& column : table.columns)
        longest = std::max(longest, column.size());
    TablePlaces places;
    places.pairsY = kRowsTop + kRowPitch * static_cast<int>(longest) + kGap;
    const int pairs = static_cast<int>(table.pairs.size());
    places.activationY =
        pairs == 0 ? places.pairsY : places.pairsY + kBlockHeading + kPairPitch * pairs + kGap;
    places.end = places.activationY + activationHeight(engine);
    return places;
}

// A line of text unscrolled at `y`; of the hundreds that many voices give, only the seen ones are drawn.
bool isLineSeen(const WindowLayout& layout, int y) {
    const SDL_Rect view = leftPanelView(layout);
    const int top = leftPanelY(layout, y);
    return top + kRowPitch > view.y && top < view.y + view.h;
}

void drawLine(const AppState& app, std::string_view text, int x, int y, SDL_Color color) {
    DrawText(app.draw, text, x, leftPanelY(app.layout, y), app.fonts.fontLabel, color);
}

void drawColumn(const AppState& app, const FrequencyTable& table, int column) {
    const ColumnLook& look = kColumnLooks[static_cast<std::size_t>(column)];
    const std::array<int, 4> places = textPlaces(app.layout, column);
    const int width = app.layout.leftWidth / kTableColumnCount;
    const ClipGuard clip(app.renderer, {column * width, 0, width, app.layout.windowH});
    drawLine(app, look.heading, places[0], kHeadingY, look.headingColor);
    for (std::size_t i = 0; i < places.size(); ++i)
        drawLine(app, look.names[i], places[i], kNamesY, kNamesColor);
    int y = kRowsTop;
    for (const TableVoice& voice : table.columns[static_cast<std::size_t>(column)]) {
        if (isLineSeen(app.layout, y)) {
            const RowText text = rowText(voice, column);
            for (std::size_t i = 0; i < places.size(); ++i)
                drawLine(app, text.texts[i], places[i], y, text.colors[i]);
        }
        y += kRowPitch;
    }
}

void drawRule(const AppState& app, int y, SDL_Color color) {
    hLine(app.renderer, kTextX, app.layout.leftWidth - kTextX, leftPanelY(app.layout, y), color);
}

void drawRules(const AppState& app, const TablePlaces& places) {
    const WindowLayout& layout = app.layout;
    const SDL_Color color = withAlpha(app.theme.themeBorder, kLineAlpha);
    drawRule(app, kHeadingLineY, color);
    // Down to the panel's foot, or to that of a table which is longer.
    const int top = leftPanelY(layout, kColumnLinesTop);
    const int bottom = std::max(layout.contentBottom - kColumnLinesFoot, leftPanelY(layout, places.end));
    const int width = layout.leftWidth / kTableColumnCount;
    for (int column = 1; column < kTableColumnCount; ++column)
        vLine(app.renderer, column * width, top, bottom, color);
}

void drawPairs(const AppState& app, const std::vector<BinauralPair>& pairs, int y) {
    if (pairs.empty()) return;
    drawRule(app, y, {180, 130, 255, 80});
    drawLine(app, formatText("BINAURAL BEATS (%d pairs)", static_cast<int>(pairs.size())), kTextX, y + 4,
             {180, 130, 255, 220});
    y += kBlockHeading;
    for (const BinauralPair& pair : pairs) {
        const std::string text = formatText("L:%.0f R:%.0f = ", pair.left, pair.right) +
                                 fixedText(static_cast<double>(pair.beatHz), 1) + "Hz " +
                                 bandName(pair.beatHz);
        drawLine(app, text, kIndentedX, y, SelectBandColor(pair.beatHz));
        y += kPairPitch;
    }
}

void drawActivation(const AppState& app, int y) {
    const std::int32_t mode = app.engine->activationMode;
    if (mode <= kActivationOff) return;
    drawRule(app, y, toColor(kActivationSeparatorColour));
    drawLine(app, activationTitle(mode), kTextX, y + 3, toColor(kActivationTitleColour));
    y += kBlockHeading;
    for (const ActivationLine& line : kActivationLines) {
        if (mode < line.fromMode) continue;
        drawLine(app, line.text, kIndentedX, y, toColor(line.colour));
        y += kActivationPitch;
    }
    if (app.engine->dronesOn) drawLine(app, kDroneLine.text, kIndentedX, y, toColor(kDroneLine.colour));
}

}  // namespace

int frequencyTableEnd(const AppState& app) {
    return tablePlaces(makeFrequencyTable(app.snapshot.voices), *app.engine).end;
}

void drawFrequencyTable(const AppState& app) {
    if (!leftPanelShown(app.layout)) return;
    const ClipGuard clip(app.renderer, leftPanelView(app.layout));
    const FrequencyTable table = makeFrequencyTable(app.snapshot.voices);
    const TablePlaces places = tablePlaces(table, *app.engine);
    drawRules(app, places);
    for (int column = 0; column < kTableColumnCount; ++column)
        drawColumn(app, table, column);
    drawPairs(app, table.pairs, places.pairsY);
    drawActivation(app, places.activationY);
}

}  // namespace veloria
