#include "recorder/drone_list.h"

#include <array>
#include <cmath>

#include "frequency/tables.h"
#include "frequency/tuned.h"
#include "recorder/clip.h"

namespace veloria {

namespace {

constexpr std::int32_t kTritypeCount = 27;

// The tritypes in ascending order, which is not the order of the tables: a row's name and its frequency need
// not have the same digits.
constexpr std::array<const char*, kTritypeCount> kTritypeNames = {
    "125", "126", "127", "135", "136", "137", "145", "146", "147", "258", "259", "268", "269", "278",
    "279", "358", "359", "368", "369", "378", "379", "458", "459", "468", "469", "478", "479"};

constexpr std::array<SDL_Color, 3> kShadowColours = {
    {{200, 80, 80, 255}, {80, 200, 80, 255}, {160, 80, 200, 255}}};

// A colour that changes evenly from row to row.
struct ColourRamp {
    int red, green, blue;              // of row 0
    int redStep, greenStep, blueStep;  // added for each row

    [[nodiscard]] SDL_Color at(int row) const {
        return {static_cast<Uint8>(red + redStep * row), static_cast<Uint8>(green + greenStep * row),
                static_cast<Uint8>(blue + blueStep * row), 255};
    }
};

constexpr ColourRamp kReflectionRamp{120, 80, 200, 4, 5, -3};
constexpr ColourRamp kRotationRamp{60, 120, 180, 5, 4, -3};

// One frequency stands for each tritype: the first of its three orders.
void appendFamily(std::vector<DroneEntry>& list, const std::array<double, kAvatarFamilySize>& family,
                  const char* label, std::int32_t kind, const ColourRamp& ramp) {
    for (std::int32_t i = 0; i < kTritypeCount; ++i) {
        const auto row = static_cast<std::size_t>(i);
        list.push_back({family[3 * row], label, kTritypeNames[row], kind, i, ramp.at(i)});
    }
}

void appendShadow(std::vector<DroneEntry>& list) {
    for (std::int32_t i = 0; i < kShadowIndexCount; ++i) {
        const auto index = static_cast<std::uint32_t>(i);
        if (isConvergence(index)) continue;
        const double number = shadowFrequency(index);
        list.push_back({number, "Shadow", std::to_string(static_cast<int>(number)), kSourceImportedShadow, i,
                        kShadowColours[static_cast<std::size_t>(shadowGroup(i))]});
    }
}

double foldForMatch(double hz) {
    constexpr double kNoFrequency = 440.0;
    return foldForTuning(hz > 0.0 ? hz : kNoFrequency).frequency;
}

}  // namespace

std::vector<DroneEntry> makeDroneList() {
    std::vector<DroneEntry> list;
    appendFamily(list, reflectionFreqs, "Reflect", kSourceReflection, kReflectionRamp);
    appendFamily(list, rotationFreqs, "Rotate", kSourceRotation, kRotationRamp);
    appendShadow(list);
    return list;
}

NearestDrone::NearestDrone(const std::vector<DroneEntry>& list, bool normalize)
    : list_(list), normalize_(normalize) {
    for (const DroneEntry& entry : list)
        compared_.push_back(normalize ? foldForMatch(entry.frequency) : entry.frequency);
}

const DroneEntry& NearestDrone::operator()(double frequency) const {
    const double target = normalize_ ? foldForMatch(frequency) : frequency;
    std::size_t best = 0;
    for (std::size_t i = 1; i < compared_.size(); ++i) {
        if (std::fabs(compared_[i] - target) < std::fabs(compared_[best] - target)) best = i;
    }
    return list_[best];
}

}  // namespace veloria
