// Activation modes: fixed key tones in place of chosen triplets of the walk, and theta drones under a file.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "base/rgba.h"
#include "engine/synth_engine.h"
#include "frequency/tables.h"

namespace veloria {

enum ActivationMode : std::int32_t {
    kActivationOff = 0,
    kActivationSingle = 1,  // no control sets it
    kActivationHeart = 2,
    kActivationTrinity = 3,
    kActivationFibonacci = 4,
};

// How a mode is shown. The counts in a mode line are its fixed text and not those of the mode's triplets.
struct ActivationRow {
    const char* panelWord;  // in the activation panel
    const char* modeLine;   // in the walker's status
    Rgba modeLineColour;
};

// Row n is the mode n; nothing of mode 0 is shown.
inline constexpr std::array<ActivationRow, 5> kActivationRows = {{
    {"", "", {0, 0, 0, 0}},
    {"SINGLE", "Heart: Single (T4)", {255, 100, 140, 220}},
    {"TRIPLE", "Heart: Triple (T4+T20+T109)", {255, 100, 140, 220}},
    {"TRINITY", "Trinity: H=3 M=3 B=3 U=4", {255, 200, 80, 230}},
    {"FIBONACCI", "Fibonacci: H=6 M=3 B=3 U=5", {100, 220, 255, 230}},
}};

// The row of `mode`; that of mode 0 for a number that is no mode.
[[nodiscard]] const ActivationRow& activationRow(std::int32_t mode);

// A line of the activation panel, shown in `fromMode` and above.
struct ActivationLine {
    const char* text;
    Rgba colour;
    std::int32_t fromMode;
};

// Under the panel's title, in this order; kDroneLine follows while the drones run.
inline constexpr std::array<ActivationLine, 4> kActivationLines = {{
    {"Heart Key: 322+325+358 Hz", {255, 120, 160, 200}, kActivationSingle},
    {"  3Hz Theta + 33Hz Gamma", {200, 100, 140, 180}, kActivationSingle},
    {"Body Key: 111+114+127 Hz", {255, 160, 80, 200}, kActivationTrinity},
    {"  3Hz Theta + 13Hz Alpha", {200, 130, 60, 180}, kActivationTrinity},
}};
inline constexpr ActivationLine kDroneLine = {
    "Theta Drone: ACTIVE (-18dB)", {80, 255, 160, 220}, kActivationSingle};

inline constexpr Rgba kActivationTitleColour = {255, 130, 180, 230};
inline constexpr Rgba kActivationSeparatorColour = {255, 130, 180, 120};

// The panel's title, "ACTIVATION: TRIPLE [H]"; empty when no mode is on.
[[nodiscard]] std::string activationTitle(std::int32_t mode);

// True when triplet `t`, counted from 0 from the top of the scale, gives way to the Heart Key in `mode`.
[[nodiscard]] bool isHeartTriplet(std::uint32_t t, std::int32_t mode);

// The key tones (Hz) that sound in place of triplet `t` in `mode`; null where the triplet keeps its rows.
[[nodiscard]] const std::array<double, 3>* keyTonesAt(std::uint32_t t, std::int32_t mode);

// The three buttons: each turns its mode on, or off where it is on (Heart: single mode too). Drones run only
// while a file plays: turning off ends them, turning on restarts those that run, since the mode decides how
// many there are, and begins them when the transport is `playing`. Main thread.
void toggleHeart(SynthEngine& engine, bool playing);
void toggleTrinity(SynthEngine& engine, bool playing);
void toggleFibonacci(SynthEngine& engine, bool playing);

}  // namespace veloria
