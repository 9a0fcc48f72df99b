// What an export sounds like, computed straight from the clips, in double but for the sum's own steps: each
// partial as a closed formula of its age, no list of voices, no clock that adds up.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "tests/engine/literal_renderer.h"

namespace veloria::test {

struct LiteralClip {
    double hz;
    double start;  // s in the file
    double end;    // s in the file
    double gainInDb;
    double gainOutDb;
    double pan;
    int waveform;  // 0 sine or 3 triangle: those have no jump where rounding would decide
    int fibonacci = 0;
    int tesla = 0;
    int octave = 0;
    int phi = 0;
    int fibPhase = 0;
};

inline double literalGain(int sounding) {
    if (sounding > 64) return 0.01875;
    const double points[][2] = {{8, 0.3}, {16, 0.15}, {32, 0.075}, {64, 0.0375}};
    if (sounding <= 8) return 0.3;
    for (int i = 0;; ++i) {
        if (sounding > points[i + 1][0]) continue;
        const double t = (sounding - points[i][0]) / (points[i + 1][0] - points[i][0]);
        return points[i][1] + t * (points[i + 1][1] - points[i][1]);
    }
}

inline double literalEnvelope(double age, double left, double length) {
    const double attack = length < 0.005 ? length / 5.0 : 0.005;
    if (age < attack) return age / attack;
    return left < 0.02 ? left / 0.02 : 1.0;
}

// The clip's wave at `steps` samples after its first one, 1 for that one itself.
inline double literalWave(const LiteralClip& clip, double steps) {
    const double twoPi = 8.0 * std::atan(1.0);
    double sum = 0.0;
    double weight = 0.0;
    for (const auto& partial : literal::partialsOf(clip.hz, clip.fibonacci, 0, clip.tesla, clip.octave,
                                                   clip.phi, clip.fibPhase, 0)) {
        if (partial.hz < 20.0 || partial.hz >= 22050.0) continue;
        const double phase = std::fmod(twoPi * partial.hz * steps / 44100.0, twoPi);
        sum += partial.weight * literal::wave(phase + partial.offset, clip.waveform);
        weight += partial.weight;
    }
    return weight > 0.0 ? sum / weight : 0.0;
}

// Interleaved samples of `frames` frames.
inline std::vector<int> literalExport(const std::vector<LiteralClip>& clips, std::size_t frames) {
    std::vector<int> samples;
    double level = 0.3;
    std::vector<double> steps(clips.size(), 0.0);
    for (std::size_t i = 0; i < frames; ++i) {
        const double time = static_cast<double>(i + 1) / 44100.0;
        const auto sounds = [time](const LiteralClip& clip) { return time >= clip.start && time < clip.end; };
        level += (literalGain(static_cast<int>(std::count_if(clips.begin(), clips.end(), sounds))) - level) *
                 0.00045;
        const double tremolo = 1.0 + 0.03 * std::sin(time * 1.6180339887 * 2.0);
        double left = 0.0;
        double right = 0.0;
        for (std::size_t c = 0; c < clips.size(); ++c) {
            const LiteralClip& clip = clips[c];
            if (!sounds(clip)) continue;
            const double length = clip.end - clip.start;
            const double in = std::pow(10.0, clip.gainInDb / 20.0);
            const double out = std::pow(10.0, clip.gainOutDb / 20.0);
            const double s = (in + (time - clip.start) / length * (out - in)) *
                             literalEnvelope(time - clip.start, clip.end - time, length) *
                             literalWave(clip, ++steps[c]) * tremolo;
            left += 2.0 * (1.0 - clip.pan) * s;
            right += 2.0 * clip.pan * s;
        }
        for (const double side : {left, right}) {
            const double scaled = std::trunc(std::tanh(level * side) * 32000.0);
            samples.push_back(static_cast<int>(std::clamp(scaled, -32768.0, 32767.0)));
        }
    }
    return samples;
}

}  // namespace veloria::test
