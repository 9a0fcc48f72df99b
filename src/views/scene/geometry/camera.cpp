#include "views/scene/geometry/camera.h"

#include <algorithm>
#include <cmath>

namespace veloria {

namespace {

constexpr float kRadians = 0.017453292f;      // of a degree
constexpr float kScreenShare = 0.2f;          // of the shorter side, for one unit at depth 1 and factor 1
constexpr float kFarthestPixel = 16777216.f;  // whole numbers up to here are exact in single precision

int wholePixels(float offset) {
    return static_cast<int>(std::clamp(offset, -kFarthestPixel, kFarthestPixel));
}

// `end` to the near depth, on the line to `other`, which is in front of it.
void pullForward(CameraPoint& end, const CameraPoint& other) {
    const float part = (kNearDepth - end.z) / (other.z - end.z);
    end = {end.x + (other.x - end.x) * part, end.y + (other.y - end.y) * part, kNearDepth};
}

}  // namespace

CameraPoint toCamera(Point3 point, const KatharaViewState& view) {
    const float a = view.azimuth * kRadians;
    const float e = view.elevation * kRadians;
    const float x1 = std::cos(a) * point.x + std::sin(a) * point.z;
    const float y1 = point.y;
    const float z1 = std::cos(a) * point.z - std::sin(a) * point.x;
    const float y2 = std::cos(e) * y1 - std::sin(e) * z1;
    const float z2 = std::sin(e) * y1 + std::cos(e) * z1;
    return {x1, y2, z2 + view.zoom};
}

ScreenPoint projectPoint(CameraPoint cameraPoint, const KatharaViewState& view, int rectX, int rectY,
                         int rectW, int rectH) {
    if (!(cameraPoint.z >= kNearDepth)) return {};  // not-a-number is not seen either
    const float s = view.fov / cameraPoint.z;
    const float scale = static_cast<float>(std::min(rectW, rectH)) * kScreenShare;
    const float right = cameraPoint.x * s * scale;
    const float up = cameraPoint.y * s * scale;
    if (std::isnan(right) || std::isnan(up)) return {};
    return {true, rectX + rectW / 2 + wholePixels(right), rectY + rectH / 2 - wholePixels(up)};
}

bool clipToNearDepth(CameraPoint& from, CameraPoint& to) {
    const bool fromSeen = from.z >= kNearDepth;
    const bool toSeen = to.z >= kNearDepth;
    if (!fromSeen && !toSeen) return false;
    if (!fromSeen) pullForward(from, to);
    if (!toSeen) pullForward(to, from);
    return true;
}

}  // namespace veloria
