// The retuner: moves the sound of a decoded music file onto the table of frequencies while it plays.
//
// One mono sample in, one out. Mode 1 moves every bin of a short-time transform to the bin of its nearest
// table frequency, mode 2 only the spectral peaks, mode 3 resamples the stream so that the equal-tempered
// note next to a chosen Solfeggio frequency lands on it. Mode 0 passes the sample on.
#pragma once

#include <array>
#include <atomic>
#include <complex>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>

#include "frequency/tables.h"

namespace veloria {

inline constexpr std::size_t kBlockSize = 4096;  // samples of one transform
inline constexpr std::size_t kHopSize = 1024;    // samples between blocks: each sample is in four
inline constexpr std::size_t kBinCount = kBlockSize / 2 + 1;  // bins of the half-spectrum
inline constexpr std::size_t kNyquistBin = kBlockSize / 2;    // the last of them
inline constexpr double kBinWidthHz = 10.7666015625;          // 44100 / 4096, exact
inline constexpr double kHopAdvance = 1.5707963267948966;     // phase of one bin number in one hop, radians
inline constexpr std::size_t kOutputRingSize = 2 * kBlockSize;
inline constexpr std::uint32_t kTimeRingSize = 65536;
inline constexpr std::size_t kPeakRows = 8;
inline constexpr std::uint32_t kNothingOfFile = 2 * kTimeRingSize;  // every ring has forgotten the file then

enum RetunerMode : std::int32_t { kModeOff = 0, kModeFull = 1, kModePeak = 2, kModeSolfeggio = 3 };

// A row of the panel's table of peaks.
struct PeakEntry {
    float sourceHz;         // of the peak's bin in the retuned spectrum
    float targetHz;         // `binTargetHz` of that bin
    float level;            // relative to the largest magnitude of the block, 0 to 1
    std::int32_t harmonic;  // `binHarmonic` of that bin
};

// What the user has chosen, taken once per stereo frame so that one frame sees one mode and one target.
struct RetunerSettings {
    std::int32_t mode;         // RetunerMode
    std::int32_t strength;     // blend, 0 to 100 %
    std::int32_t targetIndex;  // row of sacredTargets, 0 to 12
};

// Scratch of one block, valid only while the block is being made. Kept with the object because the audio
// thread's stack is small.
struct BlockScratch {
    std::array<double, kBinCount> sum{};           // magnitude gathered in a target bin (mode 1)
    std::array<double, kBinCount> trueBin{};       // bin number that the phase tells, not whole (mode 1)
    std::array<double, kBinCount> strongest{};     // largest magnitude that went into a target bin (mode 1)
    std::array<std::int32_t, kBinCount> source{};  // the bin that it came from, -1 for none (mode 1)
    std::array<std::complex<double>, kBinCount> dry{};  // spectrum before retuning, for the blend
    std::array<double, kBinCount> magnitudes{};         // of `spectrum` before retuning (mode 2)
    std::array<double, kBinCount> newMag{};             // retuned magnitudes (mode 2)
    std::array<double, kBinCount> newPhase{};           // retuned phases, radians (mode 2)
    std::array<std::int32_t, kBinCount> peakBins{};     // bins of the peaks, ascending (mode 2)
    std::size_t peakBinCount = 0;
    std::array<double, kBinCount> shiftedMag{};  // magnitudes of `shifted`, for the table of peaks
};

// Complex values, their real and imaginary parts apart: what the vectorised transform works on. Both begin at
// a line of the cache wherever the object lies, and the gap keeps them from falling on the same lines.
struct TransformBuffer {
    static constexpr std::size_t kGap = 64;
    static constexpr std::size_t kLineBytes = 64;
    std::array<double, 2 * kBlockSize + kGap + kLineBytes / sizeof(double)> values{};

    [[nodiscard]] const double* real() const {
        const auto past = reinterpret_cast<std::uintptr_t>(values.data()) % kLineBytes;
        return values.data() + (kLineBytes - past) % kLineBytes / sizeof(double);
    }
    [[nodiscard]] const double* imag() const { return real() + kBlockSize + kGap; }
    [[nodiscard]] double* real() { return const_cast<double*>(std::as_const(*this).real()); }
    [[nodiscard]] double* imag() { return const_cast<double*>(std::as_const(*this).imag()); }
};

// The lanes for which the vectorised functions ask the C library, a bit each and a byte for every vector.
// They are noted first and asked for together: the library's functions run faster one behind the other than
// between two vectors.
using DoubtBits = std::array<std::uint8_t, kBlockSize / 2 + 8>;

// What `binTarget` says, sorted out: most bins are their own target and no other's.
struct TargetLists {
    std::array<std::int32_t, kBinCount> madeFor{};     // the `binTarget` of these lists
    std::array<double, kBinCount> own{};               // 1 for a bin that is its target's only source, else 0
    std::array<std::int32_t, kBinCount> sharedBins{};  // the bins that are not such, ascending
    std::array<std::int32_t, kBinCount> sharedGoals{};  // their targets, each once
    std::size_t sharedBinCount = 0;
    std::size_t sharedGoalCount = 0;
    std::int32_t moved = 0;     // bins whose target is another
    std::int32_t distance = 0;  // how far they move, all together, in bins
};

// Scratch of one block of the running stage, beside that of the literal one.
struct FastScratch {
    TransformBuffer input;   // what a transform is made of
    TransformBuffer output;  // what it gives
    DoubtBits doubts{}, moreDoubts{};
    TargetLists targets;
    std::array<double, kBinCount> leadBin{};         // true bin of a target's strongest source (mode 1)
    std::array<double, kBinCount> leadScale{};       // by which it is scaled (mode 1)
    std::array<double, kBinCount> phase{};           // of the block's bins, radians
    std::array<std::int32_t, kBinCount> peakBins{};  // bins of the retuned spectrum's peaks, ascending
};

// About 850 KB, meant for static storage. Threads: `mode`, `strength` and `targetIndex` may be stored and
// loaded anywhere at any time; the tables are filled before a mode other than 0 is chosen and only read from
// then on; all else belongs to the audio thread, and the main thread touches it only while the callback is
// excluded (audio lock held or device paused), where it takes a report() and ResetStreams().
struct SacredFft {
    std::atomic<std::int32_t> mode{kModeOff};
    std::atomic<std::int32_t> strength{100};                    // blend, 0 to 100 %
    std::array<double, sacredTargets.size()> solfeggioRatio{};  // resampling ratio of each target
    std::atomic<std::int32_t> targetIndex{8};                   // row of sacredTargets; 8 is 528 Hz
    std::array<double, kBlockSize> hannWindow{};                // before and after the transform
    std::array<std::int32_t, kBinCount> binTarget{};            // bin that takes bin k's energy, 1 to 2048
    std::array<double, kBinCount> binTargetHz{};                // table frequency nearest to bin k
    std::array<std::int32_t, kBinCount> binHarmonic{};          // its row of ratioTable, 0 for none
    std::array<float, kBlockSize> inputRing{};                  // the last 4096 samples taken in
    std::array<float, kOutputRingSize> outputRing{};            // where blocks overlap and add up
    std::int32_t inputPos = 0;                                  // next write, and the oldest sample
    std::int32_t outputRead = 0;                                // next read
    std::int32_t outputWrite = 0;                               // where the next block's first sample goes
    std::int32_t hopCount = 0;                                  // samples given out since the last block
    std::int32_t fillCount = 0;                                 // samples taken in before the first block
    std::array<float, kTimeRingSize> timeRing{};                // input samples of mode 3
    std::uint32_t timeWrite = 0;                                // their count; wraps after 27 hours
    double timeRead = 0.0;                                      // read position in the same count, grows
    std::int32_t timeWarmup = 0;                                // samples swallowed by mode 3, up to 4
    std::uint32_t sinceFile = kNothingOfFile;                   // samples taken in since the file's last one
    std::uint32_t timeFileEnd = 0;                              // `timeWrite` behind the file's last sample
    std::array<std::complex<double>, kBlockSize> spectrum{};    // the transform's buffer
    std::array<std::complex<double>, kBinCount> shifted{};      // the retuned half-spectrum
    std::array<double, kBinCount> synthPhase{};                 // running output phase (mode 1), radians
    std::array<double, kBinCount> lastPhase{};                  // input phase of the block before (mode 1)
    std::array<PeakEntry, kPeakRows> peaks{};                   // for the panel
    std::atomic<std::int32_t> peakCount{0};                     // valid rows of `peaks`
    std::atomic<float> avgShiftHz{0.0f};                        // mean distance moved in the last block, Hz
    std::atomic<std::int32_t> binsShifted{0};                   // bins (mode 1) or peaks (mode 2) moved
    std::atomic<std::int32_t> peaksFound{0};                    // peaks in the last block of mode 2
    float maxMagnitude = 0.0f;                                  // largest in the last block of mode 2
    BlockScratch scratch;
    FastScratch fast;

    // Fills the bin tables from the 342 frequencies and makes the transform's; takes a few milliseconds. Main
    // thread, at start-up.
    void Init();

    // One sample through the retuner, with the settings of its frame. Audio thread.
    float processSample(float sample, const RetunerSettings& settings);

    // The same with the settings of this moment.
    float processSample(float sample);

    // Puts every sample through, in place, with the settings of their block: what processSample gives for one
    // after the other, at a copy's cost in mode 0 and between the blocks of modes 1 and 2. Audio thread.
    void processSamples(std::span<float> samples, const RetunerSettings& settings);

    // Chooses a mode; does nothing if it is the mode already. Leaving mode 0 clears the streams, so the
    // caller holds the audio lock. Both the buttons and the selector, whose mode is 3, choose by this; only
    // "off" has its own way, setModeOff.
    void SetMode(std::int32_t newMode);

    // Empties every ring, position and phase; mode, settings, tables and statistics stay. Main thread, with
    // the audio device locked or paused.
    void ResetStreams();
};

// Fills `hannWindow`. Main thread, at start-up.
void fillHannWindow(SacredFft& retuner);

// Fills `solfeggioRatio`. Main thread, at start-up.
void fillSolfeggioRatio(SacredFft& retuner);

// Turns the retuner off. Nothing is cleared, so no lock is needed.
void setModeOff(SacredFft& retuner);

// The settings for one stereo frame. An index outside the table is taken as its nearest end. Any thread.
[[nodiscard]] RetunerSettings loadSettings(const SacredFft& retuner);

// Mode 3 with a ratio above 1 reads faster than one sample per frame. Before a frame takes its own sample the
// callback feeds samples of the file for as long as this is true. Audio thread.
[[nodiscard]] bool needsFeed(const SacredFft& retuner, const RetunerSettings& settings);

// Takes in one sample ahead for mode 3. Audio thread.
void feedSample(SacredFft& retuner, float sample);

// A plain copy of what the panel shows.
struct RetunerReport {
    std::int32_t mode;
    std::int32_t strength;     // %
    std::int32_t targetIndex;  // row of sacredTargets
    double solfeggioRatio;     // of that row
    float avgShiftHz;
    std::int32_t binsShifted;
    std::int32_t peaksFound;
    float maxMagnitude;
    std::int32_t peakCount;  // valid rows of `peaks`
    std::array<PeakEntry, kPeakRows> peaks;
};

// Main thread, with the audio lock held: the rows are then of one block, and never half of the next.
[[nodiscard]] RetunerReport report(const SacredFft& retuner);

}  // namespace veloria
