#include "views/scene/geometry/kathara_geometry.h"

#include <cmath>
#include <cstdint>

namespace veloria {

namespace {

constexpr float kNinth = 0.69813174f;   // radians, 40 degrees
constexpr float kQuarter = 1.5707964f;  // radians
constexpr float kThird = 2.0943952f;    // radians
constexpr float kSpread = 0.32f;        // radius of each digit's circle
constexpr float kStep = 0.28f;          // height of a hundred
constexpr float kRingRadius = 2.0f;
constexpr float kPyramidRadius = 2.0f;
constexpr float kPyramidBase = -0.636f;  // z
constexpr float kPyramidPeak = 1.908f;   // z
constexpr std::array<float, 3> kPyramidAngles = {0.87266463f, -1.2217306f,
                                                 -3.3161259f};  // 50, -70, -190 degrees

// The whole part of a frequency; 0 for what has none that an int holds.
int wholeHz(double hz) {
    constexpr double kMost = 2147483000.0;
    return std::fabs(hz) < kMost ? static_cast<int>(hz) : 0;
}

// There is no place for 0 on the circle: it stands where 9 does.
int nineForZero(int digit) {
    return digit != 0 ? digit : 9;
}

template <std::size_t n>
std::array<Point3, n> placed(const std::array<double, n>& frequencies, float yOffset) {
    std::array<Point3, n> points;
    for (std::size_t i = 0; i < n; ++i)
        points[i] = freqTo3D(frequencies[i], yOffset);
    return points;
}

ScenePoints makeScenePoints() {
    ScenePoints points;
    points.reflectionPoints = placed(reflectionFreqs, kReflectionOffset);
    points.rotationPoints = placed(rotationFreqs, kRotationOffset);
    for (std::uint32_t i = 0; i < kShadowIndexCount; ++i)
        points.shadowPoints[i] = freqTo3D(shadowFrequency(i), kShadowOffset);
    points.solfeggioTeslaPoints = solfeggioTesla(kSceneTeslaOffsets);
    return points;
}

}  // namespace

Point3 freqTo3D(double frequency, float yOffset) {
    const int n = wholeHz(frequency);
    const float angleA = static_cast<float>(nineForZero(n % 10) - 1) * kNinth;
    const float angleB = static_cast<float>(nineForZero(n / 10 % 10) - 1) * kNinth;
    const int h = nineForZero(n / 100);
    return {(std::cos(angleA) + std::cos(angleB)) * kSpread, static_cast<float>(h - 5) * kStep + yOffset,
            (std::sin(angleA) + std::sin(angleB)) * kSpread};
}

SolfeggioPoints solfeggioTesla(const SolfeggioOffsets& offsets) {
    SolfeggioPoints points;
    for (std::size_t i = 0; i < points.size(); ++i)
        points[i] = freqTo3D(solfeggio12[i], offsets[i]);
    return points;
}

Point3 enneagramPoint(int digit) {
    const float angle = kQuarter - static_cast<float>(digit % 9) * kNinth;
    return {kRingRadius * std::cos(angle), kRingRadius * std::sin(angle), 0.0f};
}

PyramidCorners pyramidCorners(int pyramid) {
    PyramidCorners corners;
    for (std::size_t i = 0; i < kPyramidAngles.size(); ++i) {
        const float a = kPyramidAngles[i];
        corners[i] = {kPyramidRadius * std::cos(a), kPyramidRadius * std::sin(a), kPyramidBase};
    }
    corners[kPyramidApex] = {0.0f, 0.0f, kPyramidPeak};
    const float t = static_cast<float>(pyramid) * kThird;
    for (Point3& corner : corners) {
        corner = {corner.x * std::cos(t) + corner.z * std::sin(t), corner.y,
                  corner.z * std::cos(t) - corner.x * std::sin(t)};
    }
    return corners;
}

const ScenePoints& scenePoints() {
    static const ScenePoints points = makeScenePoints();
    return points;
}

}  // namespace veloria
