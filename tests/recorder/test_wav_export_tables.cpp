// What the renderer keeps for the voices of an export.
#include <algorithm>

#include "recorder/wav_export.h"
#include "tests/recorder/recorder_fixture.h"

namespace veloria {
namespace {

class WavExportTables : public test::RecorderTest {
  protected:
    // Voices of one partial, all different and all at once, half of them from the start.
    static std::vector<Voice> manyVoices(int count) {
        std::vector<Voice> voices;
        for (int i = 0; i < count; ++i) {
            Voice voice;
            voice.frequency = 100.0 + 0.5 * i;
            voice.volume = 0.001f;
            voice.startTime = i % 2 == 0 ? 0.0 : 0.05;
            voice.endTime = 1.0;
            voice.overrides = {0, 0, 0, 0, 0, 0, 0, 0};
            voices.push_back(voice);
        }
        return voices;
    }
};

// Voices that share a table build it anew in each sub-block, at many times the cost.
TEST_F(WavExportTables, EachOf700VoicesAtOnceHasATableOfItsOwn) {
    engine.partialTables[3].frequency = 77.0;
    std::size_t most = 0;
    const auto look = [&](float done) {
        most = std::max(most, engine.voices.size());
        for (std::size_t i = 0; done > 0.0f && i < engine.voices.size(); ++i)
            EXPECT_EQ(engine.partialTables.at(i).frequency, engine.voices[i].frequency) << i;
        return done < 0.2f && !HasFailure();
    };
    std::vector<std::int16_t> samples;
    EXPECT_EQ(renderVoices(engine, manyVoices(700), 1.0, look, samples), RenderOutcome::Cancelled);
    EXPECT_EQ(most, 700u);
    // The engine's own are those it had.
    EXPECT_EQ(engine.partialTables.size(), kVoiceFigure + 1u);
    EXPECT_EQ(engine.partialTables[3].frequency, 77.0);
}

TEST_F(WavExportTables, AnyNumberOfVoicesTakesNoMoreThan64MiB) {
    std::size_t tables = 0;
    const auto look = [&](float done) {
        tables = engine.partialTables.size();
        return done == 0.0f;
    };
    std::vector<std::int16_t> samples;
    EXPECT_EQ(renderVoices(engine, manyVoices(10000), 1.0, look, samples), RenderOutcome::Cancelled);
    EXPECT_GT(tables, 5000u);
    EXPECT_LE(tables * sizeof(PartialTable), 64u << 20);
}

}  // namespace
}  // namespace veloria
