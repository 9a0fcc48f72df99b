// A second WAV reader, slow and straightforward: it reads one value at a time, unchecked, as from a file
// handle whose failed reads leave the variable as it was. The tests and the fuzz target hold the real reader
// against it.
#pragma once

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <vector>

namespace veloria::test {

class LiteralWav {
  public:
    explicit LiteralWav(std::span<const std::uint8_t> file) : file_(file) {}

    // How many frames would be produced; 0 for a failure.
    std::uint64_t frames() {
        if (text() != "RIFF" || (number(4), text() != "WAVE")) return 0;
        bool sawFormat = false;
        std::uint64_t dataSize = 0;
        for (;;) {
            const std::string id = text();
            const std::uint64_t size = number(4);
            if (failed_) return 0;
            if (id == "data") {
                dataSize = size;
                break;
            }
            const std::uint64_t start = at_;
            if (id == "fmt ") {
                readFormat(start, size);
                sawFormat = true;
                if (size < 16) continue;
            }
            at_ = start + size;
        }
        if (!sawFormat || (format_ != 1 && format_ != 3) || channels_ == 0 || bits_ / 8 == 0) return 0;
        const std::uint64_t frameBytes = bits_ / 8 * channels_;
        const std::uint64_t claimed = dataSize / frameBytes;
        const std::uint64_t held = (file_.size() - at_) / frameBytes;
        const std::uint64_t tenSeconds = 10 * (rate_ == 0 ? 44100 : rate_);
        return claimed > held + tenSeconds ? held : claimed;
    }

    // The frames at the file's own rate; call frames() first.
    std::vector<float> decode(std::uint64_t count) {
        std::vector<float> samples;
        for (std::uint64_t frame = 0; frame < count; ++frame) {
            float sum = 0;
            for (std::uint64_t channel = 0; channel < channels_; ++channel)
                sum += value();
            const float mean = sum / static_cast<float>(channels_);
            samples.push_back(std::isfinite(mean) ? mean : 0.0F);
        }
        return samples;
    }

    static std::vector<float> resample(const std::vector<float>& source, std::uint32_t rate) {
        if (rate == 44100 || rate == 0 || source.empty()) return source;
        const double ratio = rate / 44100.0;
        const auto n = source.size();
        const auto count = static_cast<std::uint64_t>(static_cast<double>(n) / ratio) + 1;
        std::vector<float> out;
        for (std::uint64_t i = 0; i < count; ++i) {
            const double p = static_cast<double>(i) * ratio;
            auto k = static_cast<std::size_t>(p);
            const auto f = static_cast<float>(p - static_cast<double>(k));
            if (k >= n) k = n - 1;
            const float next = k + 1 < n ? source[k + 1] : source[k];
            out.push_back((1 - f) * source[k] + f * next);
        }
        return out;
    }

    std::uint64_t channels() const { return channels_; }

    std::uint32_t rate() const { return static_cast<std::uint32_t>(rate_); }

  private:
    void readFormat(std::uint64_t start, std::uint64_t size) {
        format_ = number(2);
        channels_ = number(2);
        rate_ = number(4);
        number(4);
        number(2);
        bits_ = number(2);
        if (format_ != 0xFFFE || size < 26 || start + 26 > file_.size()) return;
        at_ = start + 24;
        format_ = number(2);
    }

    bool read(std::uint8_t* out, std::size_t count) {
        if (at_ > file_.size() || file_.size() - at_ < count) {
            failed_ = true;
            return false;
        }
        std::memcpy(out, file_.data() + at_, count);
        at_ += count;
        return true;
    }

    std::string text() {
        std::array<std::uint8_t, 4> bytes{};
        read(bytes.data(), 4);
        return {bytes.begin(), bytes.end()};
    }

    std::uint64_t number(std::size_t count) {
        std::array<std::uint8_t, 4> bytes{};
        read(bytes.data(), count);
        return bytes[0] + 256U * bytes[1] + 65536U * bytes[2] + 16777216U * bytes[3];
    }

    float value() {
        std::array<std::uint8_t, 4> b{};
        const std::size_t width = format_ == 3 ? 4 : bits_ / 8;
        if (format_ == 1 && bits_ != 8 && bits_ != 16 && bits_ != 24 && bits_ != 32) return 0;
        if (!read(b.data(), width)) {
            at_ = file_.size();
            return last_;
        }
        double exact = 0;
        if (format_ == 3) {
            exact = std::bit_cast<float>(b[0] + 256U * b[1] + 65536U * b[2] + 16777216U * b[3]);
            if (!std::isfinite(exact)) exact = 0;
        } else if (bits_ == 8) {
            exact = (b[0] - 128) / 128.0;
        } else {
            // Unsigned of the full width, then less the modulus when the top bit is set.
            double scale = std::ldexp(1.0, static_cast<int>(bits_));
            for (std::size_t i = 0; i < width; ++i)
                exact += b[i] * std::ldexp(1.0, static_cast<int>(8 * i));
            if (exact >= scale / 2) exact -= scale;
            exact = static_cast<float>(exact) / (scale / 2);
        }
        return last_ = static_cast<float>(exact);
    }

    std::span<const std::uint8_t> file_;
    std::uint64_t at_ = 0;
    bool failed_ = false;
    std::uint64_t format_ = 0;
    std::uint64_t channels_ = 0;
    std::uint64_t rate_ = 0;
    std::uint64_t bits_ = 0;
    float last_ = 0;
};

}  // namespace veloria::test
