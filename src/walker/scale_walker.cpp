#include "walker/scale_walker.h"

#include <algorithm>
#include <cmath>

#include "engine/control.h"
#include "walker/activation.h"
#include "walker/triad.h"

namespace veloria {

namespace {

constexpr double kWidestBeatHz = 40.0;      // a pair further apart is not panned as a binaural pair
constexpr double kOverlapSeconds = 0.05;    // a note outlasts its step, in case the next tick is late
constexpr std::int32_t kSlowTriplet = 108;  // where the last phase of the way down begins
constexpr std::int32_t kLastTriplet = kTripletCount - 1;

// What one step is about to sound.
struct Step {
    std::array<double, 3> freqs{};  // Hz
    std::array<float, 3> pans{0.5f, 0.5f, 0.5f};
    std::int32_t count = 0;  // notes, 0 to 3
    bool keyTones = false;   // the rows gave way to a key
};

constexpr std::array<float, 3> kKeyPans = {0.0f, 0.5f, 1.0f};

// The step's places, for indexing.
std::size_t places(const Step& step) {
    return static_cast<std::size_t>(step.count);
}

bool onTheWayDown(const ScaleWalker& walker) {
    return walker.position <= kFrequencyCount;
}

bool stepIsDue(ScaleWalker& walker, std::uint32_t nowMs) {
    if (nowMs - walker.lastTickMs < static_cast<std::uint32_t>(walker.stepMs)) return false;
    walker.lastTickMs = nowMs;
    return true;
}

void endNotes(ScaleWalker& walker, SynthEngine& engine) {
    for (std::size_t i = 0; i < static_cast<std::size_t>(walker.currentCount); ++i) {
        if (walker.currentFreqs[i] > 0) noteOffByFrequency(engine, walker.currentFreqs[i]);
    }
    walker.currentFreqs.fill(0);
    walker.currentCount = 0;
}

// The way back runs from the last row but one to the second, so that no end is played twice.
Step gatherRows(ScaleWalker& walker, const ScaleTable& table, std::int32_t span) {
    Step step;
    while (walker.position < span && step.count < 3) {
        const std::int32_t row = walker.position < table.count ? walker.position : span - walker.position;
        const ScaleEntry& entry = table.rows[static_cast<std::size_t>(row)];
        const std::size_t place = places(step);
        step.freqs[place] = entry.frequency;
        step.pans[place] = entry.worldX;
        walker.currentFreqs[place] = static_cast<std::int32_t>(entry.frequency);
        if (step.count == 0) walker.currentY = entry.worldY;
        ++step.count;
        ++walker.position;
    }
    walker.currentCount = step.count;
    return step;
}

// The triplet that ends at `position`, counted from 0; also 0 for the two rows that make none yet.
std::int32_t tripletAt(std::int32_t position) {
    return (position - 1) / 3;
}

void takeKeyTones(ScaleWalker& walker, Step& step, std::int32_t activationMode) {
    if (step.count != 3 || !onTheWayDown(walker)) return;
    const auto triplet = static_cast<std::uint32_t>(tripletAt(walker.position));
    const std::array<double, 3>* key = keyTonesAt(triplet, activationMode);
    if (key == nullptr) return;
    step.freqs = *key;
    step.pans = kKeyPans;
    step.keyTones = true;
    for (std::size_t i = 0; i < 3; ++i)
        walker.currentFreqs[i] = static_cast<std::int32_t>(step.freqs[i]);
}

void advanceDigitalRoots(ScaleWalker& walker, const Step& step) {
    for (std::size_t i = 0; i < places(step); ++i) {
        walker.drState[i] = nextDrState(walker.drState[i], static_cast<std::int32_t>(step.freqs[i]));
        walker.drValue[i] = drValueOf(walker.drState[i]);
    }
}

std::int32_t triadOf(const ScaleWalker& walker, const Step& step) {
    return step.count < 3 ? kTriadSilence : classifyTriad(walker.drValue);
}

struct ClosestPair {
    double beatHz;
    std::int32_t first;  // places
    std::int32_t second;
};

// Among equals the earlier pair.
ClosestPair closestPair(const Step& step) {
    ClosestPair best{99999.0, 0, 1};
    const auto consider = [&](std::int32_t first, std::int32_t second) {
        const double beat = std::fabs(step.freqs[static_cast<std::size_t>(first)] -
                                      step.freqs[static_cast<std::size_t>(second)]);
        if (best.beatHz > beat) best = {beat, first, second};
    };
    consider(0, 1);
    if (step.count == 3) {
        consider(0, 2);
        consider(1, 2);
    }
    return best;
}

// The lower tone left, the higher right, a third between them.
void panPair(Step& step, const ClosestPair& pair) {
    const auto first = static_cast<std::size_t>(pair.first);
    const auto second = static_cast<std::size_t>(pair.second);
    const bool firstIsLeft = step.freqs[first] <= step.freqs[second];
    step.pans[first] = firstIsLeft ? 0.0f : 1.0f;
    step.pans[second] = firstIsLeft ? 1.0f : 0.0f;
    if (step.count == 3) step.pans[3 - first - second] = 0.5f;
}

void findBeat(ScaleWalker& walker, Step& step) {
    if (step.count < 2) {
        walker.beatHz = 0.0f;
        walker.pairFirst = 0;
        walker.pairSecond = 1;
        return;
    }
    const ClosestPair pair = closestPair(step);
    walker.beatHz = static_cast<float>(pair.beatHz);
    walker.pairFirst = pair.first;
    walker.pairSecond = pair.second;
    // Key tones keep the pans of their own: left, centre, right as they rise.
    if (pair.beatHz <= kWidestBeatHz && !step.keyTones) panPair(step, pair);
}

void stampFlash(ScaleWalker& walker, std::uint32_t nowMs) {
    const std::uint32_t stamp = std::max<std::uint32_t>(1, nowMs);  // 0 means never
    switch (walker.triadKind) {
        case kTriadMind:
        case kTriadUnity:
            walker.flashTick = stamp;
            walker.flashKind = walker.triadKind;
            break;
        case kTriadBody:
            walker.flash147Tick = stamp;
            break;
        case kTriadHeart:
            walker.flash258Tick = stamp;
            break;
        default:
            break;
    }
}

// In seconds. The way down slows towards its end, though a walk at an even pace cuts every note at its next
// tick, so that it shows only where that tick comes late.
double stepDuration(const ScaleWalker& walker) {
    const double duration = walker.stepMs * 0.001 + kOverlapSeconds;
    if (!onTheWayDown(walker)) return duration;
    if (walker.tripletIndex == kLastTriplet) return duration * 4.0;
    if (walker.tripletIndex == kSlowTriplet) return duration * 2.0;
    return duration;
}

void soundStep(SynthEngine& engine, const Step& step, float volume, double duration) {
    for (std::size_t i = 0; i < places(step); ++i) {
        noteOn(engine, {.frequency = step.freqs[i],
                        .volume = volume,
                        .pan = step.pans[i],
                        .overrides = {.fibonacciCount = 2, .piCount = 0, .teslaCount = 0},
                        .duration = duration});
    }
}

}  // namespace

void walkerStart(ScaleWalker& walker, SynthEngine& engine, std::uint32_t nowMs) {
    walkerStop(walker, engine);
    walker.scaleSource();
    walker.running = true;
    walker.lastTickMs = nowMs;
    walker.beatHz = 0.0f;
    walker.triadKind = kTriadSilence;
    walker.tripletIndex = 0;
    walker.flash258Tick = 0;
    walker.flash147Tick = 0;
    walker.drState.fill(1);
    walker.drValue.fill(1);
}

void walkerTick(ScaleWalker& walker, SynthEngine& engine, std::uint32_t nowMs) {
    if (!walker.running) return;
    if (!stepIsDue(walker, nowMs)) return;
    const ScaleTable& table = walker.scaleSource();
    const std::int32_t span = walkerStepCount(table.count);
    if (span == 0) return;
    endNotes(walker, engine);
    Step step = gatherRows(walker, table, span);
    takeKeyTones(walker, step, engine.activationMode);
    advanceDigitalRoots(walker, step);
    walker.triadKind = triadOf(walker, step);
    walker.tripletIndex = tripletAt(walker.position);
    findBeat(walker, step);
    stampFlash(walker, nowMs);
    soundStep(engine, step, triadRow(walker.triadKind).volume, stepDuration(walker));
    if (walker.position >= span) walker.position = 0;
}

void walkerStop(ScaleWalker& walker, SynthEngine& engine) {
    endNotes(walker, engine);
    walker.running = false;
    walker.position = 0;
}

void walkerToggle(ScaleWalker& walker, SynthEngine& engine, std::uint32_t nowMs) {
    if (walker.running) {
        walkerStop(walker, engine);
    } else {
        walkerStart(walker, engine, nowMs);
    }
}

void setWalkerSpeed(ScaleWalker& walker, std::int32_t ms) {
    walker.stepMs = std::clamp(ms, kMinStepMs, kMaxStepMs);
}

std::int32_t walkerStepCount(std::int32_t rowCount) {
    return rowCount < 2 ? 0 : 2 * rowCount - 2;
}

}  // namespace veloria
