// A walk on an engine that renders nothing, over a table that writes no file.
#pragma once

#include <gtest/gtest.h>

#include "engine/synth_engine.h"
#include "frequency/scale_table.h"
#include "walker/scale_walker.h"

namespace veloria::test {

inline const ScaleTable& quietScale() {
    static const ScaleTable table = makeScaleTable();
    return table;
}

class Walk : public ::testing::Test {
  protected:
    Walk() { walker.scaleSource = quietScale; }

    // Moves the clock by one step's time and ticks.
    void step() {
        now += static_cast<std::uint32_t>(walker.stepMs);
        engine.time = now / 1000.0;
        walkerTick(walker, engine, now);
    }
    void steps(int count) {
        for (int i = 0; i < count; ++i)
            step();
    }
    // The i-th note of the step that was played last.
    const Voice& note(std::size_t i) const {
        return engine.voices.at(engine.voices.size() - static_cast<std::size_t>(walker.currentCount) + i);
    }

    SynthEngine engine;
    ScaleWalker walker;
    std::uint32_t now = 5000;
};

}  // namespace veloria::test
