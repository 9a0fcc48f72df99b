// The 234 frequencies that an import names its clips after.
#pragma once

#include <SDL.h>

#include <cstdint>
#include <string>
#include <vector>

namespace veloria {

struct DroneEntry {
    double frequency;       // Hz
    const char* kindLabel;  // "Reflect", "Rotate" or "Shadow"
    std::string name;       // a tritype, or the number itself
    std::int32_t kind;      // kSourceReflection, kSourceRotation or kSourceImportedShadow
    std::int32_t index;     // 0 to 26, for Shadow 0 to 215
    SDL_Color colour;
};

// 27 Reflection rows, 27 Rotation rows, and the 180 Shadow numbers that are no Avatar frequency.
[[nodiscard]] std::vector<DroneEntry> makeDroneList();

// The row nearest to a frequency, the first of equally near ones. With `normalize` both are folded into 100
// to 1000 Hz first, and what is no positive number counts as 440 Hz.
class NearestDrone {
  public:
    NearestDrone(const std::vector<DroneEntry>& list, bool normalize);
    [[nodiscard]] const DroneEntry& operator()(double frequency) const;

  private:
    const std::vector<DroneEntry>& list_;
    bool normalize_;
    std::vector<double> compared_;  // Hz, one a row
};

}  // namespace veloria
