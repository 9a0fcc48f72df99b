// The timed walk through the scale: three rows at a time from the top to the bottom and back without end.
// Everything here belongs to the main thread; times in ms are the ticks of the caller's clock, which may
// wrap.
#pragma once

#include <array>
#include <cstdint>

#include "engine/synth_engine.h"
#include "frequency/scale_table.h"

namespace veloria {

inline constexpr std::int32_t kMinStepMs = 30;
inline constexpr std::int32_t kMaxStepMs = 1000;
inline constexpr std::int32_t kTripletCount = kFrequencyCount / 3;  // of the way down

struct ScaleWalker {
    bool running = false;
    std::int32_t position = 0;                   // rows walked in this sweep, 0 to 2N - 3
    std::int32_t stepMs = 200;                   // time of one step; set by setWalkerSpeed
    std::array<std::int32_t, 3> currentFreqs{};  // whole Hz sounding now, 0 where none
    std::int32_t currentCount = 0;               // notes of the step, 0 to 3
    float currentY = 0.0f;                       // worldY of the step's first row
    std::uint32_t lastTickMs = 0;
    std::array<std::int32_t, 3> drState{1, 1, 1};  // 1 to 81, of the left, centre and right place
    std::array<std::int32_t, 3> drValue{1, 1, 1};  // digital roots of the states
    float beatHz = 0.0f;                           // distance of the closest pair
    std::int32_t pairFirst = 0;                    // places of the closest pair
    std::int32_t pairSecond = 1;
    std::int32_t triadKind = 0;      // TriadKind
    std::int32_t tripletIndex = 0;   // 0 to 227; 0 to 113 on the way down
    std::uint32_t flashTick = 0;     // ms of the last Mind or Unity triad; 0 in a stamp means never
    std::int32_t flashKind = 0;      // which of the two it was
    std::uint32_t flash258Tick = 0;  // ms of the last Heart triad
    std::uint32_t flash147Tick = 0;  // ms of the last Body triad

    // Where the rows come from. The default builds the process's table and writes its dump at the first
    // start; an offline walk puts a source here that writes nothing.
    const ScaleTable& (*scaleSource)() = buildScaleTable;
};

// Starts from the top, ending the notes of a walk that runs; the first step falls one stepMs after `nowMs`.
void walkerStart(ScaleWalker& walker, SynthEngine& engine, std::uint32_t nowMs);

// Plays the next step if one is due at `nowMs`. Called once a frame, so that is how exact the time is. Does
// nothing while stopped.
void walkerTick(ScaleWalker& walker, SynthEngine& engine, std::uint32_t nowMs);

// Ends the notes and the walk. The digital-root states stay until the next start.
void walkerStop(ScaleWalker& walker, SynthEngine& engine);

// The button "DNA Spiral": stops a walk that runs, else starts one.
void walkerToggle(ScaleWalker& walker, SynthEngine& engine, std::uint32_t nowMs);

// Sets the time of a step, held to 30 to 1000 ms.
void setWalkerSpeed(ScaleWalker& walker, std::int32_t ms);

// Rows walked in one sweep of a table of `rowCount` rows, down and back: 2N - 2, or 0 below two rows.
[[nodiscard]] std::int32_t walkerStepCount(std::int32_t rowCount = scaleCount());

}  // namespace veloria
