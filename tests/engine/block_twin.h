// Two engines with the same voices, one rendered sample by sample and one by blocks, and what they may differ
// in.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "engine/render.h"

namespace veloria::test {

inline constexpr double kSampleTolerance = 2e-6;  // of full scale, after the limiter
inline constexpr double kPhaseTolerance = 1e-9;   // of a turn

struct Twin {
    SynthEngine samples;
    SynthEngine blocks;
    double worst = 0.0;              // the largest difference so far that is within the tolerance
    int beyond = 0;                  // samples (of either side) that differ by more
    double worstBeyond = 0.0;        // and the largest difference among those
    std::size_t frames = 0;          // rendered so far
    std::vector<float> lastSamples;  // of the last call of render, interleaved
    std::vector<float> lastBlocks;

    // The same voice into both, with an id of its own.
    void add(Voice voice) {
        voice.id = samples.nextVoiceId++;
        samples.voices.push_back(voice);
        blocks.voices.push_back(voice);
    }
    void setTime(double time) {
        samples.time = time;
        blocks.time = time;
    }
    template <class Change>
    void both(Change change) {
        change(samples);
        change(blocks);
    }

    void note(double difference) {
        if (!(difference <= kSampleTolerance)) {
            ++beyond;
            worstBeyond = std::max(worstBeyond, difference);
        } else {
            worst = std::max(worst, difference);
        }
    }
    // One block of `count` frames.
    void render(std::size_t count) {
        lastSamples.assign(2 * count, -9.0f);
        lastBlocks.assign(2 * count, 9.0f);
        for (std::size_t i = 0; i < count; ++i)
            renderStereoSample(samples, lastSamples.data() + 2 * i);
        renderStereoBlock(blocks, lastBlocks.data(), count);
        for (std::size_t i = 0; i < lastBlocks.size(); ++i)
            note(std::fabs(static_cast<double>(lastSamples[i]) - static_cast<double>(lastBlocks[i])));
        frames += count;
    }
    // `count` frames in blocks of 512, as the device asks for.
    void play(std::size_t count) {
        for (std::size_t done = 0; done < count; done += 512)
            render(std::min<std::size_t>(512, count - done));
    }
};

// Radians between two phases, either way round.
inline double phaseDistance(double a, double b) {
    return std::fabs(std::remainder(a - b, 6.283185307179586));
}

// Clock, levels and voice list are the same, and the phases as good as the same.
inline void expectSameState(const Twin& twin) {
    EXPECT_EQ(static_cast<double>(twin.samples.time), static_cast<double>(twin.blocks.time));
    EXPECT_EQ(twin.samples.masterLevel, twin.blocks.masterLevel);
    EXPECT_EQ(twin.samples.scopePos, twin.blocks.scopePos);
    ASSERT_EQ(twin.samples.voices.size(), twin.blocks.voices.size());
    for (std::size_t v = 0; v < twin.samples.voices.size(); ++v) {
        const Voice& a = twin.samples.voices[v];
        const Voice& b = twin.blocks.voices[v];
        ASSERT_EQ(a.id, b.id) << "place " << v;
        EXPECT_EQ(a.startTime, b.startTime);
        EXPECT_EQ(a.endTime, b.endTime);
        for (std::size_t slot = 0; slot < a.phases.size(); ++slot) {
            ASSERT_LE(phaseDistance(a.phases[slot], b.phases[slot]), kPhaseTolerance * 6.283185307179586)
                << "voice " << a.id << ", slot " << slot;
            // A partial that never moved must not have moved here either, and none leaves its turn.
            ASSERT_EQ(a.phases[slot] == 0.0, b.phases[slot] == 0.0) << "slot " << slot;
            ASSERT_GE(b.phases[slot], 0.0);
            ASSERT_LE(b.phases[slot], 6.283185307179586);
        }
    }
}

// The state is the same, and no sample and no entry of the scope's ring differs by more than the tolerance.
inline void expectSame(const Twin& twin) {
    EXPECT_EQ(twin.beyond, 0) << "of " << 2 * twin.frames << ", by up to " << twin.worstBeyond;
    expectSameState(twin);
    for (std::size_t i = 0; i < twin.samples.scopeRing.size(); ++i)
        ASSERT_NEAR(twin.samples.scopeRing[i], twin.blocks.scopeRing[i], kSampleTolerance) << i;
}

// A voice that has settings of its own for everything: the fundamental alone, as a sine.
inline Voice plainVoice(double hz, double start, double end) {
    Voice voice;
    voice.frequency = hz;
    voice.volume = 0.7f;
    voice.startTime = start;
    voice.endTime = end;
    voice.channel = kNoteChannel;
    voice.overrides = {.fibonacciCount = 0,
                       .piCount = 0,
                       .teslaCount = 0,
                       .octaveSteps = 0,
                       .phiSteps = 0,
                       .fibPhase = 0,
                       .teslaPhase = 0,
                       .waveform = 0};
    return voice;
}

}  // namespace veloria::test
