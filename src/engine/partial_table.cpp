#include "engine/partial_table.h"

#include <cmath>

namespace veloria {

namespace {

constexpr double kTwoPi = 6.283185307179586;
constexpr double kSampleRateHz = 44100.0;

bool sameSettings(const VoiceOverrides& a, const VoiceOverrides& b) {
    return a.fibonacciCount == b.fibonacciCount && a.piCount == b.piCount && a.teslaCount == b.teslaCount &&
           a.octaveSteps == b.octaveSteps && a.phiSteps == b.phiSteps && a.fibPhase == b.fibPhase &&
           a.teslaPhase == b.teslaPhase && a.waveform == b.waveform;
}

// A point on the unit circle. std::complex multiplies with a care for infinities that costs more than the
// product.
struct Turn {
    double cosine;
    double sine;
};

Turn operator*(const Turn& a, const Turn& b) {
    return {a.cosine * b.cosine - a.sine * b.sine, a.sine * b.cosine + a.cosine * b.sine};
}

void fillSineRows(PartialTable& table, std::size_t place) {
    const double half = 0.5 * table.steps[place];
    Turn turn{std::cos(half), std::sin(half)};
    const Turn step = turn * turn;
    const double weight = table.weights[place];
    PartialTable::Row& row = table.rows[place];
    Turn halfSpan{1.0, 0.0};
    for (std::size_t k = 0; k < kHalfSpan; ++k) {
        row.cosine[k] = static_cast<float>(weight * turn.cosine);
        row.sine[k] = static_cast<float>(weight * turn.sine);
        turn = turn * step;
        halfSpan = halfSpan * step;
    }
    table.centreCos[place] = static_cast<float>(halfSpan.cosine);
    table.centreSin[place] = static_cast<float>(halfSpan.sine);
}

}  // namespace

void updatePartialTable(PartialTable& table, double frequency, const VoiceOverrides& settings) {
    if (table.frequency == frequency && sameSettings(table.settings, settings)) return;
    table.frequency = frequency;
    table.settings = settings;
    PartialList partials;
    const int old = table.count;
    table.count = listPartials(frequency, settings, partials);
    table.weight = 0.0f;
    table.inPlace = true;
    table.hasOffsets = false;
    for (std::size_t i = 0; i < static_cast<std::size_t>(table.count); ++i) {
        const Partial& partial = partials[i];
        table.slots[i] = static_cast<std::uint8_t>(partial.slot);
        table.steps[i] = partial.hz * kTwoPi / kSampleRateHz;
        table.offsets[i] = partial.offset / kTwoPi;
        table.weights[i] = partial.weight;
        table.weight += partial.weight;
        table.inPlace = table.inPlace && partial.slot == static_cast<int>(i);
        table.hasOffsets = table.hasOffsets || partial.offset != 0.0;
        if (settings.waveform == 0) fillSineRows(table, i);
    }
    for (int i = table.count; i < old; ++i) {
        table.steps[static_cast<std::size_t>(i)] = 0.0;
        table.offsets[static_cast<std::size_t>(i)] = 0.0;
    }
}

}  // namespace veloria
