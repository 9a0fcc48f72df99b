// What a WAV file of the tool holds, and how strong a tone is in it.
#pragma once

#include <cmath>
#include <cstdint>
#include <numbers>
#include <string>
#include <vector>

#include "tests/cli/run_tool.h"

namespace veloria::test {

// The interleaved samples of a WAV file of the tool, after a check of its header; empty without one.
inline std::vector<std::int16_t> samplesOf(const std::string& path) {
    const std::string bytes = readText(path);
    if (bytes.size() < 44) return {};
    EXPECT_EQ(bytes.substr(0, 4), "RIFF");
    EXPECT_EQ(bytes.substr(36, 4), "data");
    std::vector<std::int16_t> samples;
    for (std::size_t i = 44; i + 1 < bytes.size(); i += 2) {
        samples.push_back(static_cast<std::int16_t>(static_cast<unsigned char>(bytes[i]) |
                                                    static_cast<unsigned char>(bytes[i + 1]) << 8));
    }
    return samples;
}

struct Tone {
    double strength;  // 1 for a sine of full scale
    double phase;     // radians, at frame 0
};

// `hz` in one side (0 left, 1 right) of frames first to last.
inline Tone toneOf(const std::vector<std::int16_t>& samples, double hz, std::size_t first, std::size_t last,
                   std::size_t side = 0) {
    double re = 0.0;
    double im = 0.0;
    for (std::size_t i = first; i < last; ++i) {
        const double angle = 2.0 * std::numbers::pi * hz * static_cast<double>(i) / 44100.0;
        re += samples[2 * i + side] * std::cos(angle);
        im += samples[2 * i + side] * std::sin(angle);
    }
    return {2.0 * std::hypot(re, im) / static_cast<double>(last - first) / 32000.0, std::atan2(-im, re)};
}

inline double strengthOf(const std::vector<std::int16_t>& samples, double hz, std::size_t first,
                         std::size_t last, std::size_t side = 0) {
    return toneOf(samples, hz, first, last, side).strength;
}

// The frequency of the one tone near `hz`, from how its phase drifts between two stretches of `length` frames
// from `first` on, half a second apart.
inline double frequencyNear(const std::vector<std::int16_t>& samples, double hz, std::size_t first,
                            std::size_t length) {
    constexpr std::size_t kApart = 22050;
    const double early = toneOf(samples, hz, first, first + length).phase;
    const double late = toneOf(samples, hz, first + kApart, first + kApart + length).phase;
    const double drift = std::remainder(late - early, 2.0 * std::numbers::pi);
    return hz + drift / (2.0 * std::numbers::pi) * 44100.0 / kApart;
}

}  // namespace veloria::test
