#include "frequency/scale_table.h"

#include <algorithm>
#include <cmath>

#include "base/fixed_text.h"
#include "base/whole_file.h"

namespace veloria {

namespace {

constexpr float kStep = 0.28f;            // between neighbours of one ladder
constexpr float kFamilyShift = 0.6f;      // Reflection stands this much higher, Rotation lower
constexpr float kSameHeight = 0.001f;     // heights this close are one level; levels are 0.04 apart
constexpr std::int32_t kMiddleDigit = 5;  // the first digit at height 0 of a ladder
constexpr std::size_t kDumpLineSize = 32;

ScaleTable g_scaleTable;

float ladderHeight(double frequency) {
    const auto hundreds = static_cast<std::int32_t>(frequency) / 100;
    const std::int32_t rung = hundreds == 0 ? 9 : hundreds;
    return static_cast<float>(rung - kMiddleDigit) * kStep;
}

void append(ScaleTable& table, const ScaleEntry& row) {
    table.rows[static_cast<std::size_t>(table.count++)] = row;
}

// Higher rows first, and the lower frequency first within a level.
bool standsBefore(const ScaleEntry& a, const ScaleEntry& b) {
    if (a.worldY > b.worldY + kSameHeight) return true;
    if (a.worldY < b.worldY - kSameHeight) return false;
    return a.frequency < b.frequency;
}

// `text` set flush right in `width` columns.
std::string flushRight(const std::string& text, std::size_t width) {
    return text.size() >= width ? text : std::string(width - text.size(), ' ') + text;
}

const char* familyLetter(float worldX) {
    if (worldX < 0.25f) return "R";
    if (worldX > 0.75f) return "T";
    return "S";
}

std::string dumpLine(std::int32_t index, const ScaleEntry& row) {
    const auto height = static_cast<double>(row.worldY);
    std::string line = flushRight(std::to_string(index), 3) + "  ";
    line += flushRight(fixedText(row.frequency, 0), 4) + "  " + familyLetter(row.worldX);
    line += std::string("  Y=") + (std::signbit(height) ? "" : "+") + fixedText(height, 3);
    if ((index + 1) % 3 == 0) line += "  |";
    return line + "\n";
}

void writeDump(const ScaleTable& table) {
    const std::string text = scaleDumpText(table);
    // Whether it was written is not said.
    static_cast<void>(writeWholeFile(kScaleDumpName, text.data(), text.size()));
}

}  // namespace

ScaleTable makeScaleTable() {
    ScaleTable table;
    for (const double hz : reflectionFreqs)
        append(table, {hz, 0.0f, ladderHeight(hz) + kFamilyShift});
    for (const double hz : rotationFreqs)
        append(table, {hz, 1.0f, ladderHeight(hz) - kFamilyShift});
    for (std::uint32_t i = 0; i < kShadowIndexCount; ++i) {
        if (!isConvergence(i)) append(table, {shadowFrequency(i), 0.5f, ladderHeight(shadowFrequency(i))});
    }
    std::sort(table.rows.begin(), table.rows.begin() + table.count, standsBefore);
    table.built = true;
    return table;
}

std::string scaleDumpText(const ScaleTable& table) {
    std::string text = std::to_string(table.count) + " freqs sorted by world Y (top to bottom)\n";
    text += "Triplets marked with | separator\n\n";
    text.reserve(text.size() + static_cast<std::size_t>(table.count) * kDumpLineSize);
    for (std::int32_t i = 0; i < table.count; ++i)
        text += dumpLine(i, table.rows[static_cast<std::size_t>(i)]);
    return text;
}

const ScaleTable& buildScaleTable() {
    if (!g_scaleTable.built) {
        g_scaleTable = makeScaleTable();
        writeDump(g_scaleTable);
    }
    return g_scaleTable;
}

const ScaleTable& scaleTable() {
    return g_scaleTable;
}

std::int32_t scaleCount() {
    return g_scaleTable.count;
}

}  // namespace veloria
