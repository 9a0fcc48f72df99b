// What the retuner still holds of a file that has been fed to its end.
#pragma once

#include <cstddef>
#include <cstdint>

#include "spectral/sacred_fft.h"

namespace veloria {

// More than framesToCome ever says: the ring of mode 3, read at the lowest ratio.
inline constexpr std::uint32_t kMostFramesToCome = kTimeRingSize + kTimeRingSize / 8;

// Tells what is handed over next: so many samples of a file, then so many of the silence behind one. In mode
// 3, whose ring counts what it takes, one sample at a time. Audio thread.
void noteIntake(SacredFft& retuner, std::size_t ofFile, std::size_t ofSilence);

// Output frames that still bring something of the file when no more of it goes in, 0 to kMostFramesToCome: in
// modes 1 and 2 the way through the blocks, in mode 3 what the reading lags. Rounded up, by less than a hop
// in modes 1 and 2. Audio thread, or any other that excludes it.
[[nodiscard]] std::uint32_t framesToCome(const SacredFft& retuner, const RetunerSettings& settings);

// True behind the file's end in mode 3 while the reading has not come to it: the ring takes no silence then,
// which would make the reading jump over the end, or overwrite it. Audio thread.
[[nodiscard]] bool isReadingOut(const SacredFft& retuner);

}  // namespace veloria
