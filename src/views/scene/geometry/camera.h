// The camera of the 3-D views and its projection. It looks at the origin always; what moves is the scene.
#pragma once

#include "views/scene/geometry/point3.h"

namespace veloria {

// One instance serves the main view and the floating panel.
struct KatharaViewState {
    float azimuth = 25.0f;    // degrees; -180 to 180 by its slider, beyond 180 by rotation
    float elevation = 20.0f;  // degrees, -89 to 89
    float zoom = 12.0f;       // distance of the camera from the origin, 0 to 15 scene units
    float fov = 6.94f;        // a factor and no angle; 1 to 10
    bool autoRotate = false;
    bool showHz = true;  // figures beside dots and diamonds
    bool showSolfeggio = true;
    bool showReflection = true;
    bool showRotation = true;
    bool showShadow = true;
    bool showMerkaba = true;
    bool showEnneagram = true;
    bool showVitruvian = true;
    bool showGrid = true;
    bool showCentroid = true;
    bool helixLabels = false;       // codons in place of figures, where the digits allow it
    bool teslaCoordinates = false;  // the twelve nodes by their digits, not as a tree
};

// Nothing nearer than this is seen; scene units.
inline constexpr float kNearDepth = 0.1f;

struct ScreenPoint {
    bool visible = false;
    int screenX = 0;  // pixels, as the rectangle's
    int screenY = 0;
};

[[nodiscard]] CameraPoint toCamera(Point3 point, const KatharaViewState& view);

// Where the point falls on a rectangle in pixels; not visible below kNearDepth. What lies millions of pixels
// outside is held there, so that every answer is a whole number.
[[nodiscard]] ScreenPoint projectPoint(CameraPoint cameraPoint, const KatharaViewState& view, int rectX,
                                       int rectY, int rectW, int rectH);

// Moves the end that lies below kNearDepth along the line to that depth. False when both do, and nothing of
// the line is seen.
[[nodiscard]] bool clipToNearDepth(CameraPoint& from, CameraPoint& to);

}  // namespace veloria
