// Modes 1 and 2 written down once more, in one piece and without a thought for speed.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <vector>

#include "spectral/sacred_fft.h"
#include "tests/spectral/literal_transform.h"

namespace veloria::literal {

struct Peak {
    float source, target, level;
    int harmonic;
};

class Retuner {
  public:
    Retuner(const SacredFft& tables, int mode, int strength)
        : tables_(tables), mode_(mode), strength_(strength) {}

    float process(float x) {
        input_[pos_] = x;
        pos_ = (pos_ + 1) % 4096;
        if (fill_ < 4096) {
            if (++fill_ == 4096) {
                block();
                hop_ = 0;
            }
            return 0.0f;
        }
        const float out = output_[read_];
        output_[read_] = 0.0f;
        read_ = (read_ + 1) % 8192;
        if (++hop_ == 1024) {
            block();
            hop_ = 0;
        }
        return out;
    }

    int shiftedCount = 0;
    float shiftedHz = 0.0f;
    int found = 0;
    std::vector<Peak> peaks;

  private:
    static constexpr double kPi = 3.14159265358979323846;

    void block() {
        std::vector<Complex> x(4096);
        for (std::size_t i = 0; i < 4096; ++i) {
            const double sample = input_[(pos_ + i) % 4096];
            x[i] = Complex(sample * (0.5 * (1.0 - std::cos(2.0 * kPi * double(i) / 4095.0))), 0.0);
        }
        forward(x);
        const float s = float(strength_) * 0.01f;
        const std::vector<Complex> dry = x;
        std::vector<Complex> y = mode_ == 1 ? allBins(x) : peaksOnly(x);
        collect(y);
        x[0] = Complex(x[0].real(), 0.0);
        for (std::size_t k = 1; k < 2048; ++k)
            x[k] = y[k];
        x[2048] = Complex(y[2048].real(), 0.0);
        if (s < 0.999f) {
            const double wet = s;
            for (std::size_t k = 0; k <= 2048; ++k) {
                const double re = wet * x[k].real() + (1.0 - wet) * dry[k].real();
                const double im = wet * x[k].imag() + (1.0 - wet) * dry[k].imag();
                x[k] = Complex(re, k == 0 || k == 2048 ? 0.0 : im);
            }
        }
        for (std::size_t k = 1; k < 2048; ++k)
            x[4096 - k] = std::conj(x[k]);
        inverse(x);
        for (std::size_t i = 0; i < 4096; ++i) {
            const double hann = 0.5 * (1.0 - std::cos(2.0 * kPi * double(i) / 4095.0));
            output_[(write_ + i) % 8192] += float(x[i].real() * hann) * 0.6666667f;
        }
        write_ = (write_ + 1024) % 8192;
    }

    std::vector<Complex> allBins(const std::vector<Complex>& x) {
        std::vector<double> sum(2049), bins(2049), strongest(2049);
        std::vector<int> source(2049, -1);
        double total = 0.0;
        shiftedCount = 0;
        for (int k = 1; k <= 2048; ++k) {
            const auto at = std::size_t(k);
            const double mag = std::hypot(x[at].real(), x[at].imag());
            const double phase = std::atan2(x[at].imag(), x[at].real());
            double d = phase - last_[at] - k * 1.5707963267948966;
            d -= std::round(d / (2.0 * kPi)) * (2.0 * kPi);
            last_[at] = phase;
            bins[at] = d / 1.5707963267948966 + k;
            const int t = tables_.binTarget[at];
            sum[std::size_t(t)] += mag;
            if (mag > strongest[std::size_t(t)]) {
                strongest[std::size_t(t)] = mag;
                source[std::size_t(t)] = k;
            }
            if (t != k) {
                total += std::abs((t - k) * 10.7666015625);
                ++shiftedCount;
            }
        }
        shiftedHz = shiftedCount < 1 ? 0.0f : float(total / shiftedCount);
        std::vector<Complex> y(2049);
        for (int t = 1; t <= 2048; ++t) {
            const auto at = std::size_t(t);
            if (sum[at] < 1e-15) continue;
            const int c = source[at];
            if (c >= 0) {
                const double bin = bins[std::size_t(c)];
                const double scale = bin > 1e-6 ? double(t) / double(c) : 1.0;
                synth_[at] += scale * bin * 1.5707963267948966;
                if (synth_[at] > 314.1592653589793) {
                    synth_[at] -= std::floor(synth_[at] / (2.0 * kPi)) * (2.0 * kPi);
                }
            }
            y[at] = Complex(sum[at] * std::cos(synth_[at]), sum[at] * std::sin(synth_[at]));
        }
        return y;
    }

    std::vector<Complex> peaksOnly(const std::vector<Complex>& x) {
        std::vector<double> mag(2049), newMag, newPhase(2049);
        double largest = 0.0;
        for (std::size_t k = 0; k <= 2048; ++k) {
            mag[k] = std::hypot(x[k].real(), x[k].imag());
            largest = std::max(largest, mag[k]);
            newPhase[k] = std::atan2(x[k].imag(), x[k].real());
        }
        newMag = mag;
        std::vector<bool> isPeak(2049, false);
        found = 0;
        for (std::size_t k = 2; k <= 2046; ++k) {
            isPeak[k] = mag[k] > mag[k - 1] && mag[k] > mag[k + 1] && mag[k] > 0.01 * largest;
            if (isPeak[k]) ++found;
        }
        for (int p = 1; p <= 2048; ++p) {
            if (!isPeak[std::size_t(p)] || tables_.binTarget[std::size_t(p)] == p) continue;
            for (int j = std::max(1, p - 3); j <= std::min(2048, p + 3); ++j)
                newMag[std::size_t(j)] = 0.0;
        }
        double total = 0.0;
        shiftedCount = 0;
        for (int p = 1; p <= 2048; ++p) {
            const int t = tables_.binTarget[std::size_t(p)];
            if (!isPeak[std::size_t(p)] || t == p) continue;
            for (int d = -3; d <= 3; ++d) {
                if (p + d < 1 || p + d > 2048 || t + d < 1 || t + d > 2048) continue;
                const auto from = std::size_t(p + d);
                const auto to = std::size_t(t + d);
                if (mag[from] > newMag[to]) newPhase[to] = std::atan2(x[from].imag(), x[from].real());
                newMag[to] += mag[from];
            }
            ++shiftedCount;
            total += std::abs((t - p) * 10.7666015625);
        }
        shiftedHz = shiftedCount < 1 ? 0.0f : float(total / shiftedCount);
        std::vector<Complex> y(2049);
        for (std::size_t k = 0; k <= 2048; ++k) {
            y[k] = Complex(newMag[k] * std::cos(newPhase[k]), newMag[k] * std::sin(newPhase[k]));
        }
        return y;
    }

    void collect(const std::vector<Complex>& y) {
        std::vector<double> mag(2049);
        for (std::size_t k = 0; k <= 2048; ++k)
            mag[k] = std::hypot(y[k].real(), y[k].imag());
        const double largest = *std::max_element(mag.begin(), mag.end());
        peaks.clear();
        if (largest < 1e-12) return;
        for (std::size_t k = 2; k <= 2046; ++k) {
            if (!(mag[k] > mag[k - 1] && mag[k] > mag[k + 1] && mag[k] > 0.02 * largest)) continue;
            const Peak row{float(double(k) * 10.7666015625), float(tables_.binTargetHz[k]),
                           float(mag[k] / largest), tables_.binHarmonic[k]};
            std::size_t place = std::min<std::size_t>(peaks.size(), 7);
            for (std::size_t i = 0; i < peaks.size(); ++i) {
                if (peaks[i].level < row.level) {
                    place = i;
                    break;
                }
            }
            if (peaks.size() == 8) peaks.pop_back();
            peaks.insert(peaks.begin() + std::ptrdiff_t(place), row);
        }
    }

    const SacredFft& tables_;
    int mode_;
    int strength_;
    std::array<float, 4096> input_{};
    std::array<float, 8192> output_{};
    std::array<double, 2049> last_{};
    std::array<double, 2049> synth_{};
    std::size_t pos_ = 0, read_ = 0, write_ = 0;
    int hop_ = 0, fill_ = 0;
};

}  // namespace veloria::literal
