#include "recorder/wav_export.h"

#include <sys/resource.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <limits>
#include <new>
#include <stdexcept>

#include "engine/control.h"
#include "engine/render.h"
#include "media/pcm_loader.h"
#include "media/wav_writer.h"
#include "tests/recorder/literal_export.h"
#include "tests/recorder/recorder_fixture.h"

namespace veloria {
namespace {

using platform::fakePlatform;

constexpr std::size_t kSecond = 44100;

// Keeps a clip's start off the samples, where the rounding of a clock would decide in which one it begins.
constexpr double kOffSample = 1e-5;

class WavExport : public test::RecorderTest {
  protected:
    // The engine as it stands before an export, to be found unchanged after it.
    void occupyEngine() {
        noteOn(engine, {.frequency = 333.0, .volume = 0.5f, .duration = 50.0});
        engine.time = 12.5;
        engine.masterLevel = 0.07f;
    }
    void expectEngineBack() {
        ASSERT_EQ(engine.voices.size(), 1u);
        EXPECT_EQ(engine.voices[0].frequency, 333.0);
        EXPECT_EQ(engine.voices[0].phases[0], 0.0);
        EXPECT_EQ(engine.time, 12.5);
        EXPECT_EQ(engine.masterLevel, 0.07f);
        EXPECT_FALSE(fakePlatform().audioPaused);
        EXPECT_EQ(fakePlatform().lockDepth, 0);
    }

    std::vector<std::int16_t> render() {
        std::vector<std::int16_t> samples;
        EXPECT_EQ(renderRecorder(recorder, {}, samples), RenderOutcome::Done);
        return samples;
    }

    // A sine of one partial, whatever the engine's stacks.
    RecorderClip& addSine(std::int32_t channel, double frequency, double start, double end) {
        RecorderClip& clip = add(channel, frequency, start, end);
        clip.overrides = {0, 0, 0, 0, 0, 0, 0, 0};
        return clip;
    }

    // The first and the last frame that is not silence; {-1, -1} when all is.
    static std::pair<long, long> soundOf(const std::vector<std::int16_t>& samples) {
        std::pair<long, long> found{-1, -1};
        for (std::size_t i = 0; i < samples.size(); ++i) {
            if (samples[i] == 0) continue;
            if (found.first < 0) found.first = static_cast<long>(i / 2);
            found.second = static_cast<long>(i / 2);
        }
        return found;
    }
};

std::vector<unsigned char> bytesOf(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

TEST_F(WavExport, AClipOfTwoSecondsMakesAFileOfThreeWithThisHeader) {
    addSine(0, 440.0, 0.0, 2.0);
    ASSERT_TRUE(exportRecorderToWav(recorder, path("out.wav"), {}));
    const std::vector<unsigned char> bytes = bytesOf(path("out.wav"));
    // 132,300 frames: 529,200 bytes of data (0x00081330), 529,236 behind the first eight (0x00081354).
    const std::vector<unsigned char> header = {
        'R',  'I',  'F', 'F', 0x54, 0x13, 0x08, 0x00, 'W', 'A',  'V',  'E',  'f',  'm',  't',
        ' ',  16,   0,   0,   0,    1,    0,    2,    0,   0x44, 0xAC, 0x00, 0x00, 0x10, 0xB1,
        0x02, 0x00, 4,   0,   16,   0,    'd',  'a',  't', 'a',  0x30, 0x13, 0x08, 0x00};
    ASSERT_EQ(bytes.size(), 44u + 529200u);
    EXPECT_EQ(std::vector<unsigned char>(bytes.begin(), bytes.begin() + 44), header);
}

TEST_F(WavExport, TheSamplesAreThoseOfALiteralComputation) {
    std::vector<test::LiteralClip> literal;
    const auto lay = [&](test::LiteralClip what) {
        what.start += kOffSample;
        what.end += kOffSample;
        RecorderClip& clip = add(static_cast<int>(literal.size() % 4), what.hz, what.start, what.end);
        clip.gainInDb = static_cast<float>(what.gainInDb);
        clip.gainOutDb = static_cast<float>(what.gainOutDb);
        clip.pan = static_cast<float>(what.pan);
        clip.overrides = {what.fibonacci, 0, what.tesla,   what.octave, what.phi,
                          what.fibPhase,  0, what.waveform};
        literal.push_back(what);
    };
    lay({440.0, 0.0, 1.0, 0.0, -20.0, 0.5, 0, 2});
    lay({139.71, 0.25, 0.75, -6.0, -6.0, 0.0, 3});
    lay({300.0, 0.5, 1.25, -3.0, 0.0, 1.0, 0, 3, 2, 1, 2, 30});
    lay({9000.0, 0.1, 0.9, -6.0, -12.0, 0.25, 0, 4});  // most partials out of the band
    lay({500.0, 0.3, 0.303, 0.0, 0.0, 0.5, 0});        // shorter than an attack
    for (int i = 0; i < 12; ++i)                       // a chord that moves the master level
        lay({200.0 + 31.0 * i, 0.6, 1.5, -12.0, -12.0, i / 11.0, i % 2 == 0 ? 0 : 3});

    const std::vector<std::int16_t> samples = render();
    const std::vector<int> expected = test::literalExport(literal, kSecond * 5 / 2);
    ASSERT_EQ(samples.size(), expected.size());
    int worst = 0;
    int loudest = 0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        worst = std::max(worst, std::abs(samples[i] - expected[i]));
        loudest = std::max(loudest, std::abs(expected[i]));
    }
    // Truncation turns a difference of rounding into one step. A clip's pan is rounded to single precision.
    EXPECT_LE(worst, 1);
    EXPECT_GT(loudest, 8000);
}

TEST_F(WavExport, ManyClipsOneAfterTheOtherSoundAsALiteralComputation) {
    std::vector<test::LiteralClip> literal;
    for (int i = 0; i < 60; ++i) {
        const double start = (i * 37 % 60) * 0.05 + kOffSample;  // not in the order of time
        literal.push_back({150.0 + 7.0 * i, start, start + 0.15, -6.0, -9.0, 0.5, 0});
        RecorderClip& clip = addSine(i % 4, literal.back().hz, start, literal.back().end);
        clip.gainInDb = -6.0f;
        clip.gainOutDb = -9.0f;
    }
    const std::vector<std::int16_t> samples = render();
    const std::vector<int> expected = test::literalExport(literal, samples.size() / 2);
    for (std::size_t i = 0; i < samples.size(); ++i)
        ASSERT_LE(std::abs(samples[i] - expected[i]), 1) << i;
}

TEST_F(WavExport, ClipsThatWaitSoundAsIfTheyHadStoodInTheEnginesList) {
    for (int i = 0; i < 40; ++i) {
        RecorderClip& clip = add(i % 4, 120.0 + 17.3 * i, (i * 7 % 40) * 0.03, (i * 7 % 40) * 0.03 + 0.3);
        clip.overrides.waveform = i % 4;
        clip.pan = static_cast<float>(i) / 39.0f;
        clip.gainInDb = -18.0f;
        clip.gainOutDb = -12.0f;
    }
    const ExportPlan plan = planExport(recorder);
    SynthEngine plain;
    plain.voices = plan.voices;
    const std::vector<std::int16_t> samples = render();
    int atSteps = 0;
    for (std::size_t i = 0; i < samples.size() / 2; ++i) {
        float out[2];
        renderStereoSample(plain, out);
        // The order in which voices are added up differs, and with it the last bit before the truncation.
        const bool same = std::abs(samples[2 * i] - toSample16(out[0])) <= 1 &&
                          std::abs(samples[2 * i + 1] - toSample16(out[1])) <= 1;
        // Nor need a saw and a square agree at a step that falls exactly on a frame.
        if (!same) ++atSteps;
    }
    EXPECT_LE(atSteps, 60) << "of " << samples.size() / 2;
}

TEST_F(WavExport, TheSameArrangementGivesTheSameBytes) {
    for (int i = 0; i < 20; ++i)
        add(i % 4, 200.0 + 20.0 * i, 0.05 * i, 0.05 * i + 0.2);
    occupyEngine();
    const std::vector<std::int16_t> first = render();
    expectEngineBack();
    engine.masterLevel = 0.3f;
    EXPECT_EQ(render(), first);
}

TEST_F(WavExport, WhatItWritesTheReaderReadsBack) {
    addSine(0, 440.0, 0.0, 0.5);
    addSine(1, 300.0, 0.2, 0.7).pan = 0.0f;
    const std::vector<std::int16_t> samples = render();
    ASSERT_TRUE(exportRecorderToWav(recorder, path("out.wav"), {}));
    PcmStream stream;
    ASSERT_TRUE(loadPcmFile(stream, path("out.wav")));
    ASSERT_EQ(stream.samples.size(), samples.size() / 2);
    for (std::size_t i = 0; i < stream.samples.size(); ++i) {
        const float mean = static_cast<float>(samples[2 * i] + samples[2 * i + 1]) / 2.0f / 32768.0f;
        ASSERT_FLOAT_EQ(stream.samples[i], mean) << i;
    }
}

TEST_F(WavExport, AClipThatStartsLateIsLedBySilence) {
    addSine(0, 440.0, 3.0, 3.5);
    const std::vector<std::int16_t> samples = render();
    EXPECT_EQ(samples.size(), 2 * (kSecond + kSecond * 7 / 2));
    const auto [first, last] = soundOf(samples);
    EXPECT_NEAR(static_cast<double>(first), 3.0 * kSecond, 20.0);
    EXPECT_NEAR(static_cast<double>(last), 3.5 * kSecond, 60.0);
}

TEST_F(WavExport, DisabledChannelsAndRowsOutOfUseAreSilentButCountForTheLength) {
    addSine(0, 440.0, 0.0, 0.5);
    addSine(9, 300.0, 0.0, 2.0);
    recorder.channels[0].enabled = false;
    const std::vector<std::int16_t> samples = render();
    EXPECT_EQ(samples.size(), 2 * 3 * kSecond);
    EXPECT_EQ(soundOf(samples).first, -1);
    recorder.channels[0].enabled = true;
    EXPECT_NEAR(static_cast<double>(soundOf(render()).second), 0.5 * kSecond, 60.0);
    recorder.channelCount = 10;
    EXPECT_NEAR(static_cast<double>(soundOf(render()).second), 2.0 * kSecond, 60.0);
}

TEST_F(WavExport, ARangeCutsTheClipsAndIsTheWholeFile) {
    addSine(0, 440.0, 0.0, 10.0);
    addSine(1, 300.0, 2.0, 4.0);
    addSine(2, 200.0, 0.0, 1.0);   // ends where the range begins
    addSine(3, 250.0, 2.5, 10.0);  // begins where it ends
    recorder.rangeEnabled = true;
    recorder.rangeStart = 1.0;
    recorder.rangeEnd = 2.5;
    const ExportPlan plan = planExport(recorder);
    EXPECT_EQ(plan.seconds, 1.5);
    ASSERT_EQ(plan.voices.size(), 2u);
    EXPECT_EQ(plan.voices[0].frequency, 440.0);
    EXPECT_EQ(plan.voices[0].startTime, 0.0);
    EXPECT_EQ(plan.voices[0].endTime, 1.5);
    EXPECT_EQ(plan.voices[1].frequency, 300.0);
    EXPECT_EQ(plan.voices[1].startTime, 1.0);
    EXPECT_EQ(plan.voices[1].endTime, 1.5);
    EXPECT_EQ(render().size(), 2 * kSecond * 5 / 2);
}

TEST_F(WavExport, ARangeMayLieBehindTheLastClip) {
    addSine(0, 440.0, 0.0, 1.0);
    recorder.rangeEnabled = true;
    recorder.rangeStart = 5.0;
    recorder.rangeEnd = 5.5;
    const std::vector<std::int16_t> samples = render();
    EXPECT_EQ(samples.size(), 2 * kSecond * 3 / 2);
    EXPECT_EQ(soundOf(samples).first, -1);
}

TEST_F(WavExport, ARangeThatIsOffOrEmptyDoesNothing) {
    addSine(0, 440.0, 1.0, 3.0);
    recorder.rangeStart = 1.0;
    recorder.rangeEnd = 2.0;
    EXPECT_EQ(planExport(recorder).seconds, 3.0);
    recorder.rangeEnabled = true;
    EXPECT_EQ(planExport(recorder).seconds, 1.0);
    recorder.rangeEnd = 1.0;
    EXPECT_EQ(planExport(recorder).seconds, 3.0);
    EXPECT_EQ(planExport(recorder).voices[0].startTime, 1.0);
}

TEST_F(WavExport, AVoiceCarriesTheClipAndNothingOfTheEngine) {
    RecorderClip& clip = add(2, 440.004, 0.5, 1.5);
    clip.gainInDb = -20.0f;
    clip.gainOutDb = -40.0f;
    clip.pan = 0.75f;
    clip.overrides = {1, 2, 3, 4, -2, 60, 70, 3};
    const ExportPlan plan = planExport(recorder);
    ASSERT_EQ(plan.voices.size(), 1u);
    const Voice& voice = plan.voices[0];
    EXPECT_EQ(voice.frequency, 440.0);
    EXPECT_EQ(voice.midiNote, -1);
    EXPECT_EQ(voice.channel, 9);
    EXPECT_EQ(voice.tuningTag, 0);
    EXPECT_EQ(voice.phases[0], 0.0);
    EXPECT_FLOAT_EQ(voice.volume, 0.1f);
    EXPECT_FLOAT_EQ(voice.targetVolume, 0.01f);
    EXPECT_EQ(voice.pan, 0.75f);
    EXPECT_EQ(voice.overrides.teslaCount, 3);
    EXPECT_EQ(voice.overrides.octaveSteps, 4);
    EXPECT_EQ(voice.overrides.phiSteps, -2);
    EXPECT_EQ(voice.overrides.fibPhase, 60);
    EXPECT_EQ(voice.overrides.teslaPhase, 70);
    EXPECT_EQ(voice.overrides.waveform, 3);
}

TEST_F(WavExport, WithoutEngineClipsOrSpanThereIsNoFile) {
    EXPECT_FALSE(exportRecorderToWav(recorder, path("out.wav"), {}));
    add(0, 440.0, 0.0, 0.0);
    EXPECT_FALSE(exportRecorderToWav(recorder, path("out.wav"), {}));
    addSine(0, 440.0, 0.0, 1.0);
    recorder.engine = nullptr;
    EXPECT_FALSE(exportRecorderToWav(recorder, path("out.wav"), {}));
    EXPECT_FALSE(std::filesystem::exists(path("out.wav")));
    EXPECT_TRUE(fakePlatform().log.empty());
}

TEST_F(WavExport, LoudVoicesAreLimitedSoftlyAndFullScaleComesTo32000) {
    for (int i = 0; i < 8; ++i) {
        addSine(0, 100.0, 0.0, 0.5).gainInDb = 40.0f;
        allClips(recorder).back()->gainOutDb = 40.0f;
    }
    int peak = 0;
    for (const std::int16_t sample : render())
        peak = std::max(peak, std::abs(int{sample}));
    EXPECT_EQ(peak, 32000);
}

TEST_F(WavExport, TheMasterLevelStartsFreshWhateverSoundedBefore) {
    addSine(0, 440.0, 0.0, 0.3);
    const std::vector<std::int16_t> fresh = render();
    occupyEngine();
    EXPECT_EQ(render(), fresh);
    expectEngineBack();
}

TEST_F(WavExport, TheDeviceIsPausedBeforeTheSwapAndRunsAfterTheSwapBack) {
    addSine(0, 440.0, 0.0, 0.1);
    occupyEngine();
    fakePlatform().log.clear();
    ASSERT_TRUE(exportRecorderToWav(recorder, path("out.wav"), {}));
    EXPECT_EQ(fakePlatform().log,
              (std::vector<std::string>{"pause 1", "lock", "unlock", "lock", "unlock", "pause 0"}));
    expectEngineBack();
}

TEST_F(WavExport, ProgressIsToldAtTheStartAndTenTimesASecond) {
    addSine(0, 440.0, 0.0, 1.0);
    occupyEngine();
    std::vector<float> told;
    std::vector<std::int16_t> samples;
    const auto progress = [&](float value) {
        EXPECT_TRUE(fakePlatform().audioPaused);
        EXPECT_EQ(fakePlatform().lockDepth, 0);
        for (const Voice& voice : engine.voices)
            EXPECT_EQ(voice.frequency, 440.0);
        told.push_back(value);
        return true;
    };
    ASSERT_EQ(renderRecorder(recorder, progress, samples), RenderOutcome::Done);
    ASSERT_EQ(told.size(), 21u);
    EXPECT_EQ(told[0], 0.0f);
    for (std::size_t i = 0; i < 20; ++i)
        EXPECT_FLOAT_EQ(told[i + 1], static_cast<float>(4410 * i) / 88200.0f);
    expectEngineBack();
}

TEST_F(WavExport, TheEngineIsBackBeforeAFileIsOpened) {
    addSine(0, 440.0, 0.0, 0.1);
    occupyEngine();
    std::filesystem::create_directory(path("taken"));
    EXPECT_FALSE(exportRecorderToWav(recorder, path("taken"), {}));
    expectEngineBack();
    EXPECT_FALSE(exportRecorderToWav(recorder, path("no/such/folder.wav"), {}));
    expectEngineBack();
}

TEST_F(WavExport, AFullDeviceFails) {
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no /dev/full here";
    addSine(0, 440.0, 0.0, 0.1);
    occupyEngine();
    EXPECT_FALSE(exportRecorderToWav(recorder, "/dev/full", {}));
    expectEngineBack();
    EXPECT_TRUE(std::filesystem::exists("/dev/full"));
}

TEST_F(WavExport, AProgressFunctionThatThrowsGivesTheRenderUp) {
    addSine(0, 440.0, 0.0, 1.0);
    occupyEngine();
    int calls = 0;
    const auto progress = [&calls](float) {
        if (++calls == 5) throw std::runtime_error("no more");
        return true;
    };
    EXPECT_FALSE(exportRecorderToWav(recorder, path("out.wav"), progress));
    EXPECT_EQ(calls, 5);
    EXPECT_FALSE(std::filesystem::exists(path("out.wav")));
    expectEngineBack();
    std::vector<std::int16_t> samples = {1, 2};
    EXPECT_EQ(renderRecorder(
                  recorder, [](float) -> bool { throw 1; }, samples),
              RenderOutcome::GivenUp);
    EXPECT_TRUE(samples.empty());
    expectEngineBack();
}

TEST_F(WavExport, AProgressFunctionThatSaysSoEndsTheRenderAndLeavesTheOldFile) {
    addSine(0, 440.0, 0.0, 1.0);
    occupyEngine();
    std::ofstream(path("out.wav")) << "old";
    for (const int last : {1, 2, 21}) {  // of 21 calls
        int calls = 0;
        const auto progress = [&](float) { return ++calls < last; };
        EXPECT_EQ(renderRecorderToWav(recorder, path("out.wav"), progress), RenderOutcome::Cancelled);
        EXPECT_EQ(calls, last);
        std::vector<std::int16_t> samples = {1, 2};
        calls = 0;
        EXPECT_EQ(renderRecorder(recorder, progress, samples), RenderOutcome::Cancelled);
        EXPECT_TRUE(samples.empty());
        expectEngineBack();
    }
    EXPECT_EQ(std::filesystem::file_size(path("out.wav")), 3u);
    const auto entries =
        std::filesystem::directory_iterator(std::filesystem::path(path("out.wav")).parent_path());
    EXPECT_EQ(std::distance(entries, {}), 1);
}

TEST_F(WavExport, AFileThatCannotBeMadeCostsNoRender) {
    addSine(0, 440.0, 0.0, 1.0);
    occupyEngine();
    fakePlatform().log.clear();
    int calls = 0;
    const auto progress = [&calls](float) { return ++calls > 0; };
    EXPECT_EQ(renderRecorderToWav(recorder, path("no/such/out.wav"), progress), RenderOutcome::NotWritten);
    EXPECT_EQ(calls, 0);
    EXPECT_TRUE(fakePlatform().log.empty());
    expectEngineBack();
}

TEST_F(WavExport, TheFileHasTheSamplesOfTheRender) {
    addSine(0, 440.0, 0.0, 0.33);  // no whole number of blocks
    ASSERT_TRUE(exportRecorderToWav(recorder, path("out.wav"), {}));
    std::vector<std::int16_t> samples;
    ASSERT_EQ(renderRecorder(recorder, {}, samples), RenderOutcome::Done);
    EXPECT_EQ(samples.size(), 2u * (44100 + 14553));
    std::ifstream file(path("out.wav"), std::ios::binary);
    std::vector<std::int16_t> written(22 + samples.size() + 1);
    file.read(reinterpret_cast<char*>(written.data()), static_cast<std::streamsize>(2 * written.size()));
    ASSERT_EQ(file.gcount(), static_cast<std::streamsize>(44 + 2 * samples.size()));
    EXPECT_TRUE(std::equal(samples.begin(), samples.end(), written.begin() + 22));
}

TEST_F(WavExport, WantOfMemoryInTheFirstOrTheLastCallOfProgressGivesTheEngineBack) {
    addSine(0, 440.0, 0.0, 1.0);
    for (const int last : {1, 21}) {  // of 21 calls
        engine.voices.clear();
        occupyEngine();
        int calls = 0;
        std::vector<std::int16_t> samples;
        const auto progress = [&](float) {
            EXPECT_NE(engine.time, 12.5);  // the engine is the render's
            if (++calls == last) throw std::bad_alloc();
            return true;
        };
        EXPECT_EQ(renderRecorder(recorder, progress, samples), RenderOutcome::GivenUp);
        EXPECT_EQ(calls, last);
        EXPECT_TRUE(samples.empty());
        expectEngineBack();
    }
}

TEST_F(WavExport, WhatAFileCannotCountIsRefusedBeforeTheEngineIsTouched) {
    addSine(0, 440.0, 0.0, 1.0);
    occupyEngine();
    fakePlatform().log.clear();
    recorder.rangeEnabled = true;
    for (const double end : {1e9, 1e300, std::numeric_limits<double>::infinity(),
                             // One frame more than 2^32 - 1 - 36 bytes hold, less the second at the end.
                             (1073741814.0 - 44100.0 + 1.0) / 44100.0}) {
        recorder.rangeEnd = end;
        std::vector<std::int16_t> samples;
        EXPECT_EQ(renderRecorder(recorder, {}, samples), RenderOutcome::TooLong) << end;
        EXPECT_FALSE(exportRecorderToWav(recorder, path("out.wav"), {})) << end;
    }
    EXPECT_TRUE(fakePlatform().log.empty());
    expectEngineBack();
    std::vector<std::int16_t> samples;
    EXPECT_EQ(renderVoices(engine, {}, std::nan(""), {}, samples), RenderOutcome::Nothing);
    EXPECT_EQ(renderVoices(engine, {}, -1.0, {}, samples), RenderOutcome::Nothing);
    expectEngineBack();
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
TEST_F(WavExport, MemoryThatCannotBeHadGivesTheRenderUp) {
    addSine(0, 440.0, 0.0, 1.0);
    occupyEngine();
    recorder.rangeEnabled = true;
    recorder.rangeEnd = 24000.0;  // 4.2 GB
    // In a process of its own, whose address space is then limited for good.
    const auto tryWithoutMemory = [this] {
        const rlimit limit{1u << 30, 1u << 30};
        setrlimit(RLIMIT_AS, &limit);
        std::vector<std::int16_t> samples;
        const bool givenUp = renderRecorder(recorder, {}, samples) == RenderOutcome::GivenUp;
        expectEngineBack();
        std::exit(givenUp && !HasFailure() ? 7 : 1);
    };
    EXPECT_EXIT(tryWithoutMemory(), ::testing::ExitedWithCode(7), "");
}

TEST_F(WavExport, AnArrangementTooLargeToPlanGivesTheRenderUpBeforeItBegins) {
    addSine(0, 440.0, 0.0, 1.0);
    occupyEngine();
    const auto tryWithoutMemory = [this] {
        const rlimit limit{1u << 30, 1u << 30};
        setrlimit(RLIMIT_AS, &limit);
        recorder.clipCount = 1 << 30;  // room is taken for this many voices at once
        fakePlatform().log.clear();
        std::vector<std::int16_t> samples = {1, 2};
        EXPECT_EQ(renderRecorder(recorder, {}, samples), RenderOutcome::GivenUp);
        EXPECT_TRUE(samples.empty());
        EXPECT_FALSE(exportRecorderToWav(recorder, path("out.wav"), {}));
        EXPECT_TRUE(fakePlatform().log.empty());
        expectEngineBack();
        std::exit(HasFailure() ? 1 : 7);
    };
    EXPECT_EXIT(tryWithoutMemory(), ::testing::ExitedWithCode(7), "");
    EXPECT_FALSE(std::filesystem::exists(path("out.wav")));
}
#endif

TEST_F(WavExport, VoicesOfAnyKindCanBeWritten) {
    Voice voice;
    voice.frequency = 440.0;
    voice.volume = 0.5f;
    voice.startTime = 0.25;
    voice.endTime = 0.5;
    ASSERT_TRUE(renderVoicesToWav(engine, path("out.wav"), {voice}, 0.5, {}));
    EXPECT_EQ(std::filesystem::file_size(path("out.wav")), 44u + 4u * (kSecond + kSecond / 2));
    ASSERT_TRUE(renderVoicesToWav(engine, path("out.wav"), {}, 0.0, {}));
    EXPECT_EQ(std::filesystem::file_size(path("out.wav")), 44u + 4u * kSecond);
    // A length is cut to whole frames.
    ASSERT_TRUE(renderVoicesToWav(engine, path("out.wav"), {}, 2.99 / 44100.0, {}));
    EXPECT_EQ(std::filesystem::file_size(path("out.wav")), 44u + 4u * (kSecond + 2));
}

}  // namespace
}  // namespace veloria
