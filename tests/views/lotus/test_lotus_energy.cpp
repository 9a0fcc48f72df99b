// What the lotus hears.
#include "views/lotus/lotus_energy.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <cstddef>
#include <limits>
#include <numbers>
#include <random>
#include <vector>

#include "frequency/tables.h"

namespace veloria {
namespace {

constexpr double kTau = 2.0 * std::numbers::pi;
constexpr std::size_t kHeard = 1024;

class LotusEnergy : public testing::Test {
  protected:
    // Puts the sound into the ring so that its last sample is the newest; what is older than it is silent.
    void hear(const std::vector<float>& sound, int write = 0) {
        scope.samples.fill(0.0f);
        scope.write = write;
        for (std::size_t i = 0; i < sound.size(); ++i) {
            const std::size_t place = static_cast<std::size_t>(write) + 2048 - sound.size() + i;
            scope.samples[place % 2048] = sound[i];
        }
    }
    static std::vector<float> tone(double hz, double level, double phase = 0.0, std::size_t count = kHeard) {
        std::vector<float> sound(count);
        for (std::size_t i = 0; i < count; ++i) {
            const double turn = kTau * hz * static_cast<double>(i) / 44100.0;
            sound[i] = static_cast<float>(level * std::sin(turn + phase));
        }
        return sound;
    }
    static std::vector<float> noise(unsigned seed, std::size_t count = kHeard) {
        std::mt19937 random(seed);
        std::uniform_real_distribution<float> level(-1.0f, 1.0f);
        std::vector<float> sound(count);
        std::generate(sound.begin(), sound.end(), [&] { return level(random); });
        return sound;
    }
    // The size of one line of the spectrum, summed up term by term; `sound` has 1024 samples.
    static double lineOf(const std::vector<float>& sound, double hz) {
        std::complex<double> sum = 0.0;
        for (std::size_t i = 0; i < kHeard; ++i) {
            const double n = static_cast<double>(i);
            const double hann = (1.0 - std::cos(kTau * n / 1023.0)) / 2.0;
            sum += hann * static_cast<double>(sound[i]) * std::polar(1.0, -kTau * hz * n / 44100.0);
        }
        return std::abs(sum) / 1024.0;
    }
    void update(int frames = 1) {
        for (int i = 0; i < frames; ++i)
            updateLotusEnergy(state, scope);
    }
    [[nodiscard]] double energy(std::size_t petal) const { return state.lotusEnergy[petal]; }

    LotusState state;
    ScopeBuffer scope;
};

TEST_F(LotusEnergy, SilenceRaisesNothing) {
    update(10);
    for (const float value : state.lotusEnergy)
        EXPECT_EQ(value, 0.0f);
}

TEST_F(LotusEnergy, EveryToneOpensItsOwnPetalAndLeavesTheDistantOnesShut) {
    for (std::size_t own = 0; own < kPetalCount; ++own) {
        for (const double phase : {0.0, 0.7, 1.4, 2.1, 2.8}) {
            resetLotus(state);
            hear(tone(solfeggio12[own], 1.0, phase));
            update(60);
            // Half a sine's level is in each of its two lines, and half of that under the window.
            EXPECT_NEAR(energy(own), 0.25, 0.0005) << solfeggio12[own];
            for (std::size_t other = 0; other < kPetalCount; ++other) {
                if (other == own) continue;
                const double distance = std::abs(solfeggio12[own] - solfeggio12[other]);
                // Measured: 2.67 % at most from 80 Hz on (639 and 741), 85.6 % at 21 Hz (396 and 417).
                EXPECT_LT(energy(other), (distance > 80.0 ? 0.0268 : 0.857) * energy(own))
                    << solfeggio12[other] << " at " << solfeggio12[own];
            }
        }
    }
}

TEST_F(LotusEnergy, NeighboursHearAToneByTheShapeOfTheWindow) {
    const auto lobe = [](double hz) {
        const double bins = hz * 1023.0 / 44100.0;
        const double x = std::numbers::pi * bins;
        return std::sin(x) / x / (1.0 - bins * bins);
    };
    hear(tone(396, 1.0));
    update(60);
    EXPECT_NEAR(energy(6) / energy(5), lobe(21), 0.005) << "417";
    EXPECT_NEAR(energy(4) / energy(5), lobe(27), 0.005) << "369";
    resetLotus(state);
    hear(tone(417, 1.0));
    update(60);
    EXPECT_NEAR(energy(4) / energy(6), lobe(48), 0.005) << "369";
}

TEST_F(LotusEnergy, OneFrameIsFourTenthsOfTheSpectrumsLine) {
    for (unsigned seed = 1; seed <= 5; ++seed) {
        const std::vector<float> sound = noise(seed);
        resetLotus(state);
        hear(sound, static_cast<int>(seed) * 400);
        update();
        for (std::size_t k = 0; k < kPetalCount; ++k)
            EXPECT_NEAR(energy(k), 0.4 * lineOf(sound, solfeggio12[k]), 1e-6) << seed << ", " << k;
    }
}

TEST_F(LotusEnergy, RisesByFourTenthsOfTheWayAFrame) {
    const std::vector<float> sound = tone(528, 0.8);
    const double line = lineOf(sound, 528);
    hear(sound);
    double expected = 0.0;
    for (int frame = 0; frame < 12; ++frame) {
        expected = 0.6 * expected + 0.4 * line;
        update();
        EXPECT_NEAR(energy(7), expected, 1e-6) << frame;
    }
}

TEST_F(LotusEnergy, DecaysByEightPercentAFrameAfterSilence) {
    hear(tone(528, 1.0));
    update(60);
    double expected = energy(7);
    ASSERT_GT(expected, 0.2);
    hear({});
    for (int frame = 1; frame <= 50; ++frame) {
        expected *= 0.92;
        update();
        EXPECT_NEAR(energy(7), expected, 1e-7) << frame;
    }
    EXPECT_LT(energy(7), 0.005);
}

TEST_F(LotusEnergy, FallsTowardsASofterTone) {
    state.lotusEnergy.fill(0.5f);
    const std::vector<float> sound = tone(741, 0.4);
    hear(sound);
    update();
    for (std::size_t k = 0; k < kPetalCount; ++k)
        EXPECT_NEAR(energy(k), 0.92 * 0.5 + 0.08 * lineOf(sound, solfeggio12[k]), 1e-6) << k;
}

TEST_F(LotusEnergy, StopsAtOne) {
    hear(tone(258, 100.0));
    update();
    EXPECT_EQ(state.lotusEnergy[2], 1.0f);
    update();
    EXPECT_EQ(state.lotusEnergy[2], 1.0f);
    hear({});
    update();
    EXPECT_FLOAT_EQ(state.lotusEnergy[2], 0.92f);
}

TEST_F(LotusEnergy, HearsTheSameWhereverTheRingBegins) {
    const std::vector<float> sound = noise(77);
    std::array<float, kPetalCount> first{};
    for (const int write : {0, 1, 2, 500, 1022, 1023, 1024, 1025, 1500, 2046, 2047}) {
        resetLotus(state);
        hear(sound, write);
        update();
        if (write == 0) first = state.lotusEnergy;
        EXPECT_EQ(state.lotusEnergy, first) << write;
    }
    for (std::size_t k = 0; k < kPetalCount; ++k)
        EXPECT_NEAR(first[k], 0.4 * lineOf(sound, solfeggio12[k]), 1e-6) << k;
}

TEST_F(LotusEnergy, SamplesBeforeTheNewestThousandAndTwentyFourDoNotCount) {
    std::vector<float> sound(2048, 0.0f);
    std::fill(sound.begin(), sound.begin() + 1024, 1.0f);
    hear(sound, 300);
    update();
    for (const float value : state.lotusEnergy)
        EXPECT_EQ(value, 0.0f);
}

TEST_F(LotusEnergy, AClickCountsByItsPlaceUnderTheWindow) {
    for (const std::size_t place : {0U, 1U, 200U, 511U, 512U, 1000U, 1023U}) {
        std::vector<float> sound(1024, 0.0f);
        sound[place] = 1.0f;
        resetLotus(state);
        hear(sound, 100);
        update();
        const double hann = (1.0 - std::cos(kTau * static_cast<double>(place) / 1023.0)) / 2.0;
        for (std::size_t k = 0; k < kPetalCount; ++k)
            EXPECT_NEAR(energy(k), 0.4 * hann / 1024.0, 1e-9) << place << ", " << k;
    }
}

TEST_F(LotusEnergy, ASampleThatIsNoSoundPassesWithoutATrace) {
    for (const float wild : {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
                             -std::numeric_limits<float>::infinity()}) {
        resetLotus(state);
        std::vector<float> sound = tone(639, 1.0);
        hear(sound);
        update(60);
        const double before = energy(8);
        sound[400] = wild;
        hear(sound);
        update();
        EXPECT_NEAR(energy(8), 0.92 * before, 1e-6);
        hear(tone(639, 1.0));
        update(60);
        EXPECT_NEAR(energy(8), 0.25, 0.0005);
    }
}

TEST_F(LotusEnergy, TheLoudestSamplesThereAreStopAtOne) {
    hear(std::vector<float>(1024, std::numeric_limits<float>::max()));
    update();
    for (const float value : state.lotusEnergy)
        EXPECT_EQ(value, 1.0f);
}

TEST_F(LotusEnergy, LeavesTheClockAlone) {
    state.viewTime = 1.25f;
    hear(tone(147, 1.0));
    update(3);
    EXPECT_EQ(state.viewTime, 1.25f);
}

}  // namespace
}  // namespace veloria
