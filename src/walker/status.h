// What the status panel says of a running walk: its lines as text and colour, and the bands that flash behind
// them. The panel decides where they stand.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "base/rgba.h"
#include "walker/scale_walker.h"
#include "walker/triad.h"

namespace veloria {

struct StatusLine {
    std::string text;  // UTF-8; empty when there is nothing to show
    Rgba colour{};
};

inline constexpr Rgba kWalkerLineColour = {180, 140, 255, 220};

// The phase of the way down that a triplet lies in: "IGNITION" below 20, "DISTILL" below 80, "CONVERGE" below
// 108, else "TRANSCEND".
[[nodiscard]] const char* phaseName(std::int32_t tripletIndex);

// The colour of a beat: one for each band of bandName; the lowest band's for 0 and below.
[[nodiscard]] Rgba bandColour(float beatHz);

// Triplet (or row `position` of `stepCount`), frequencies, height and phase, with a heart behind a triplet
// that is the Heart Key's in `activationMode`. Empty before the first step.
[[nodiscard]] StatusLine walkerLine(const ScaleWalker& walker, std::int32_t activationMode,
                                    std::int32_t stepCount);

// The three digital roots and the triad that they form.
[[nodiscard]] StatusLine digitalRootLine(const ScaleWalker& walker);

// The closest pair's beat and its band; empty without a pair or a beat.
[[nodiscard]] StatusLine binauralLine(const ScaleWalker& walker);

// The activation mode; empty when none is on.
[[nodiscard]] StatusLine modeLine(std::int32_t activationMode);

// "SPEED: 200 ms".
[[nodiscard]] std::string walkerSpeedText(const ScaleWalker& walker);

// A band that flashes when a triad of its kind has come, and fades over `durationMs`.
struct FlashBand {
    std::int32_t kind;         // TriadKind
    std::uint32_t durationMs;  // ms
    float peakAlpha;           // at the instant of the triad
    Rgba colour;               // its alpha is not used
};

inline constexpr std::array<FlashBand, 4> kFlashBands = {{
    {kTriadMind, 1500, 40.0f, {140, 60, 255, 0}},
    {kTriadUnity, 1500, 40.0f, {255, 220, 60, 0}},
    {kTriadHeart, 2000, 45.0f, {255, 60, 120, 0}},
    {kTriadBody, 1500, 35.0f, {255, 140, 40, 0}},
}};

// The alpha of a band `elapsedMs` after its triad, truncated; 0 from durationMs on.
[[nodiscard]] std::uint8_t flashAlpha(const FlashBand& band, std::uint32_t elapsedMs);

// The bands to draw at `nowMs`, lowest first, each over the whole place of the status: that of Mind or Unity,
// that of Heart, that of Body. One with alpha 0 is not drawn.
[[nodiscard]] std::array<Rgba, 3> walkerFlashes(const ScaleWalker& walker, std::uint32_t nowMs);

}  // namespace veloria
