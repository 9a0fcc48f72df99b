#include "walker/activation.h"

#include <algorithm>

#include "engine/control.h"

namespace veloria {

namespace {

constexpr std::uint32_t kFirstHeartTriplet = 4;  // in every mode
constexpr std::array<std::uint32_t, 2> kTripleHeartTriplets = {20, 109};
constexpr std::array<std::uint32_t, 7> kFibonacciHeartTriplets = {6, 9, 14, 22, 35, 56, 77};
constexpr std::uint32_t kBodyTriplet = 37;

template <std::size_t size>
bool holds(const std::array<std::uint32_t, size>& triplets, std::uint32_t t) {
    return std::find(triplets.begin(), triplets.end(), t) != triplets.end();
}

void setMode(SynthEngine& engine, std::int32_t mode, bool playing) {
    engine.activationMode = mode;
    const bool wasOn = engine.dronesOn;
    stopDrones(engine);
    if (wasOn || playing) startDrones(engine);
}

}  // namespace

const ActivationRow& activationRow(std::int32_t mode) {
    const bool known = mode >= 0 && mode < static_cast<std::int32_t>(kActivationRows.size());
    return kActivationRows[static_cast<std::size_t>(known ? mode : kActivationOff)];
}

std::string activationTitle(std::int32_t mode) {
    if (mode <= kActivationOff) return {};
    return std::string("ACTIVATION: ") + activationRow(mode).panelWord + " [H]";
}

bool isHeartTriplet(std::uint32_t t, std::int32_t mode) {
    if (mode < kActivationSingle) return false;
    if (t == kFirstHeartTriplet) return true;
    if (mode == kActivationHeart || mode == kActivationTrinity) return holds(kTripleHeartTriplets, t);
    return mode == kActivationFibonacci && holds(kFibonacciHeartTriplets, t);
}

const std::array<double, 3>* keyTonesAt(std::uint32_t t, std::int32_t mode) {
    if (isHeartTriplet(t, mode)) return &heartKey;
    if (mode == kActivationTrinity && t == kBodyTriplet) return &bodyKey;
    return nullptr;
}

void toggleHeart(SynthEngine& engine, bool playing) {
    const std::int32_t was = engine.activationMode;
    const bool on = was == kActivationSingle || was == kActivationHeart;
    setMode(engine, on ? kActivationOff : kActivationHeart, playing);
}

void toggleTrinity(SynthEngine& engine, bool playing) {
    const bool on = engine.activationMode == kActivationTrinity;
    setMode(engine, on ? kActivationOff : kActivationTrinity, playing);
}

void toggleFibonacci(SynthEngine& engine, bool playing) {
    const bool on = engine.activationMode == kActivationFibonacci;
    setMode(engine, on ? kActivationOff : kActivationFibonacci, playing);
}

}  // namespace veloria
