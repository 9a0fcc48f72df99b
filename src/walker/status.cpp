#include "walker/status.h"

#include <algorithm>
#include <string_view>

#include "base/fixed_text.h"
#include "frequency/classify.h"
#include "walker/activation.h"

namespace veloria {

namespace {

struct Phase {
    std::int32_t end;  // the first triplet that is past it
    const char* name;
};

constexpr std::array<Phase, 3> kPhases = {{{20, "IGNITION"}, {80, "DISTILL"}, {108, "CONVERGE"}}};
constexpr const char* kLastPhase = "TRANSCEND";
constexpr const char* kHeartMark = " \u2665";

struct BandRow {
    std::string_view band;  // as bandName gives it: the bounds stand there
    Rgba colour;
};

constexpr std::array<BandRow, 5> kBandRows = {{
    {"Delta", {100, 160, 255, 230}},
    {"Theta", {160, 100, 255, 230}},
    {"Alpha", {100, 255, 160, 230}},
    {"Beta", {255, 200, 80, 230}},
    {"Gamma", {255, 100, 100, 230}},
}};

// The frequencies that sound, joined by "+".
std::string frequencySum(const ScaleWalker& walker) {
    std::string text;
    for (std::size_t i = 0; i < static_cast<std::size_t>(walker.currentCount); ++i)
        text += (i == 0 ? "" : "+") + std::to_string(walker.currentFreqs[i]);
    return text;
}

std::string heightText(const ScaleWalker& walker) {
    return "  Y=" + fixedText(static_cast<double>(walker.currentY), 2);
}

std::string tripletText(const ScaleWalker& walker, std::int32_t activationMode) {
    std::string text = "T" + std::to_string(walker.tripletIndex) + "/" + std::to_string(kTripletCount) +
                       "  " + frequencySum(walker) + heightText(walker);
    text += std::string("  [") + phaseName(walker.tripletIndex) + "]";
    if (isHeartTriplet(static_cast<std::uint32_t>(walker.tripletIndex), activationMode)) text += kHeartMark;
    return text;
}

Rgba flashAt(std::int32_t kind, std::uint32_t stamp, std::uint32_t nowMs) {
    const auto band = std::find_if(kFlashBands.begin(), kFlashBands.end(),
                                   [kind](const FlashBand& b) { return b.kind == kind; });
    if (stamp == 0 || band == kFlashBands.end()) return {0, 0, 0, 0};
    Rgba colour = band->colour;
    colour.a = flashAlpha(*band, nowMs - stamp);
    return colour;
}

}  // namespace

const char* phaseName(std::int32_t tripletIndex) {
    for (const Phase& phase : kPhases) {
        if (tripletIndex < phase.end) return phase.name;
    }
    return kLastPhase;
}

Rgba bandColour(float beatHz) {
    const std::string_view name = bandName(beatHz);
    const auto row =
        std::find_if(kBandRows.begin(), kBandRows.end(), [name](const BandRow& r) { return r.band == name; });
    return row == kBandRows.end() ? kBandRows.front().colour : row->colour;
}

StatusLine walkerLine(const ScaleWalker& walker, std::int32_t activationMode, std::int32_t stepCount) {
    if (walker.currentCount <= 0) return {};
    if (walker.currentCount == 3) return {tripletText(walker, activationMode), kWalkerLineColour};
    const char* unit = walker.currentCount == 1 ? "Hz" : "";
    return {std::to_string(walker.position) + "/" + std::to_string(stepCount) + "  " + frequencySum(walker) +
                unit + heightText(walker),
            kWalkerLineColour};
}

StatusLine digitalRootLine(const ScaleWalker& walker) {
    const TriadRow& triad = triadRow(walker.triadKind);
    const auto& roots = walker.drValue;
    return {"DR: L=" + std::to_string(roots[0]) + " C=" + std::to_string(roots[1]) +
                " R=" + std::to_string(roots[2]) + "  " + triad.text,
            triad.colour};
}

StatusLine binauralLine(const ScaleWalker& walker) {
    if (!(walker.beatHz > 0.0f) || walker.currentCount < 2) return {};
    return {
        "Binaural: " + fixedText(static_cast<double>(walker.beatHz), 1) + " Hz  " + bandName(walker.beatHz),
        bandColour(walker.beatHz)};
}

StatusLine modeLine(std::int32_t activationMode) {
    const ActivationRow& row = activationRow(activationMode);
    return {row.modeLine, row.modeLineColour};
}

std::string walkerSpeedText(const ScaleWalker& walker) {
    return "SPEED: " + std::to_string(walker.stepMs) + " ms";
}

std::uint8_t flashAlpha(const FlashBand& band, std::uint32_t elapsedMs) {
    if (elapsedMs >= band.durationMs) return 0;
    const float past = static_cast<float>(elapsedMs) / static_cast<float>(band.durationMs);
    return static_cast<std::uint8_t>((1.0f - past) * band.peakAlpha);
}

std::array<Rgba, 3> walkerFlashes(const ScaleWalker& walker, std::uint32_t nowMs) {
    return {flashAt(walker.flashKind, walker.flashTick, nowMs),
            flashAt(kTriadHeart, walker.flash258Tick, nowMs),
            flashAt(kTriadBody, walker.flash147Tick, nowMs)};
}

}  // namespace veloria
