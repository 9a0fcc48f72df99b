// Points of the 3-D views.
#pragma once

namespace veloria {

// In scene units, Y upwards.
struct Point3 {
    float x = 0.0f;
    float y = 0.0f;
    float z = 0.0f;
};

// The same point as the camera has it: z is the depth in front of it.
struct CameraPoint {
    float x = 0.0f;
    float y = 0.0f;
    float z = 0.0f;
};

}  // namespace veloria
