#include "spectral/target_lists.h"

#include <algorithm>
#include <cstdlib>

#include "spectral/half_spectrum.h"
#include "spectral/shift_all.h"

namespace veloria {

namespace {

void countMoves(TargetLists& lists) {
    lists.moved = 0;
    lists.distance = 0;
    for (std::size_t k = 1; k < kBinCount; ++k) {
        const std::int32_t away = std::abs(lists.madeFor[k] - static_cast<std::int32_t>(k));
        lists.distance += away;
        lists.moved += away != 0 ? 1 : 0;
    }
}

void gatherShared(SacredFft& retuner) {
    const TargetLists& lists = retuner.fast.targets;
    BlockScratch& scratch = retuner.scratch;
    // Neighbours mostly share their target: what it has so far waits in registers and not in memory.
    for (std::size_t i = 0; i < lists.sharedBinCount;) {
        const std::size_t t = targetOf(retuner, static_cast<std::size_t>(lists.sharedBins[i]));
        double sum = scratch.sum[t];
        double strongest = scratch.strongest[t];
        std::int32_t source = scratch.source[t];
        do {
            const auto k = static_cast<std::size_t>(lists.sharedBins[i]);
            const double magnitude = scratch.magnitudes[k];
            const bool stronger = magnitude > strongest;
            sum += magnitude;
            // Chosen and not branched to: which bin is the stronger follows no pattern.
            strongest = stronger ? magnitude : strongest;
            source = stronger ? lists.sharedBins[i] : source;
            ++i;
        } while (i < lists.sharedBinCount &&
                 targetOf(retuner, static_cast<std::size_t>(lists.sharedBins[i])) == t);
        scratch.sum[t] = sum;
        scratch.strongest[t] = strongest;
        scratch.source[t] = source;
    }
}

void leadShared(SacredFft& retuner) {
    const TargetLists& lists = retuner.fast.targets;
    for (std::size_t i = 0; i < lists.sharedGoalCount; ++i) {
        const auto t = static_cast<std::size_t>(lists.sharedGoals[i]);
        const std::int32_t source = retuner.scratch.source[t];
        if (source < 0) continue;  // silent
        const double trueBin = retuner.scratch.trueBin[static_cast<std::size_t>(source)];
        retuner.fast.leadBin[t] = trueBin;
        retuner.fast.leadScale[t] = phaseScale(t, source, trueBin);
    }
}

}  // namespace

void refreshTargetLists(SacredFft& retuner) {
    TargetLists& lists = retuner.fast.targets;
    if (lists.madeFor == retuner.binTarget) return;
    lists.madeFor = retuner.binTarget;
    lists.sharedBinCount = 0;
    lists.sharedGoalCount = 0;
    auto& sources = retuner.scratch.source;  // counts them here
    sources.fill(0);
    for (std::size_t k = 1; k < kBinCount; ++k)
        ++sources[targetOf(retuner, k)];
    for (std::size_t k = 1; k < kBinCount; ++k) {
        const std::size_t t = targetOf(retuner, k);
        const bool own = t == k && sources[k] == 1;
        lists.own[k] = own ? 1.0 : 0.0;
        if (!own) lists.sharedBins[lists.sharedBinCount++] = static_cast<std::int32_t>(k);
    }
    for (std::size_t t = 1; t < kBinCount; ++t) {
        const bool own = lists.own[t] != 0.0;
        if (!own && sources[t] > 0) lists.sharedGoals[lists.sharedGoalCount++] = static_cast<std::int32_t>(t);
    }
    retuner.fast.leadScale.fill(1.0);
    countMoves(lists);
}

void gatherByLists(SacredFft& retuner) {
    const TargetLists& lists = retuner.fast.targets;
    BlockScratch& scratch = retuner.scratch;
    for (std::size_t i = 0; i < lists.sharedGoalCount; ++i) {
        const auto t = static_cast<std::size_t>(lists.sharedGoals[i]);
        scratch.strongest[t] = 0.0;
        scratch.source[t] = kNoSource;
    }
    gatherShared(retuner);
    leadShared(retuner);
    // Whole multiples of the bin width are exact in a double, so their sum does not hang on its order.
    publishShift(retuner, {lists.distance * kBinWidthHz, lists.moved});
}

}  // namespace veloria
