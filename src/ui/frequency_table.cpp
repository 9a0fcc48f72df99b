#include "ui/frequency_table.h"

#include <algorithm>
#include <cmath>

#include "frequency/classify.h"
#include "frequency/codons.h"
#include "frequency/ratio_table.h"
#include "frequency/tables.h"
#include "frequency/tuned.h"

namespace veloria {

namespace {

constexpr float kLeftBound = 0.3f;  // a pan below it is left, above the other right, between them centred
constexpr float kRightBound = 0.7f;
constexpr double kBeatLeast = 0.1;  // Hz; a pair this close does not count
constexpr double kBeatMost = 40.0;

TableColumn columnOf(const VoiceInfo& voice) {
    if (voice.channel == kShadowChannel) return kShadowColumn;
    return voice.pan > kRightBound ? kRightColumn : kLeftColumn;
}

// The entry nearest to `hz`; the first of two.
template <class Table>
double nearestIn(const Table& table, double hz) {
    return *std::min_element(table.begin(), table.end(),
                             [hz](double a, double b) { return std::fabs(a - hz) < std::fabs(b - hz); });
}

double withoutRatio(double hz, std::int32_t tuningTag) {
    if (tuningTag < 1 || tuningTag > kRatioCount) return hz;
    return hz / ratioTable[static_cast<std::size_t>(tuningTag - 1)].ratio;
}

// The whole hertz of a voice, for its digits; 0 for a value that has none.
std::int32_t wholeHz(double hz) {
    return hz >= 0.0 && hz < 1e9 ? static_cast<std::int32_t>(hz) : 0;
}

}  // namespace

FrequencyTable makeFrequencyTable(const std::vector<VoiceInfo>& voices) {
    FrequencyTable table;
    for (const VoiceInfo& voice : voices) {
        const bool centred = voice.pan >= kLeftBound && voice.pan <= kRightBound;
        table.columns[static_cast<std::size_t>(columnOf(voice))].push_back(
            {voice.frequency, voice.tuningTag, centred});
    }
    for (auto& column : table.columns) {
        std::stable_sort(column.begin(), column.end(),
                         [](const TableVoice& a, const TableVoice& b) { return a.frequency < b.frequency; });
    }
    table.pairs = binauralPairs(table.columns[kLeftColumn], table.columns[kRightColumn]);
    return table;
}

std::vector<BinauralPair> binauralPairs(const std::vector<TableVoice>& left,
                                        const std::vector<TableVoice>& right) {
    std::vector<BinauralPair> pairs;
    std::array<bool, kBinauralSearchLimit> taken{};
    const std::size_t leftCount = std::min(left.size(), kBinauralSearchLimit);
    const std::size_t rightCount = std::min(right.size(), kBinauralSearchLimit);
    for (std::size_t l = 0; l < leftCount && pairs.size() < kBinauralPairLimit; ++l) {
        double best = kBeatMost;
        std::size_t found = rightCount;
        for (std::size_t r = 0; r < rightCount; ++r) {
            const double beat = std::fabs(left[l].frequency - right[r].frequency);
            const bool nearer = found == rightCount ? beat <= best : beat < best;
            if (taken[r] || beat <= kBeatLeast || !nearer) continue;
            best = beat;
            found = r;
        }
        if (found == rightCount) continue;
        taken[found] = true;
        pairs.push_back({left[l].frequency, right[found].frequency, static_cast<float>(best)});
    }
    return pairs;
}

AvatarBase avatarBase(double hz, std::int32_t tuningTag) {
    const double base = foldForTuning(withoutRatio(hz, tuningTag)).frequency;
    const double reflection = nearestIn(reflectionFreqs, base);
    const double rotation = nearestIn(rotationFreqs, base);
    if (std::fabs(rotation - base) < std::fabs(reflection - base)) return {rotation, "Rot"};
    return {reflection, "Ref"};
}

std::string shadowSymbol(double hz) {
    const std::int32_t whole = wholeHz(hz);
    const int aminoAcid = aminoAcidOf(whole);
    if (aminoAcid != kNoCodon) return aminoAcidName(aminoAcid);
    return "DR" + std::to_string(digitalRoot(whole));
}

double shadowDifference(double hz) {
    double best = hz - shadowFrequency(0);
    for (std::uint32_t index = 1; index < kShadowIndexCount; ++index) {
        const double difference = hz - shadowFrequency(index);
        if (std::fabs(difference) < std::fabs(best)) best = difference;
    }
    return best;
}

}  // namespace veloria
