// The figure of the Kathara scene as a Wavefront OBJ file: points, lines and faces for other 3-D programs. It
// does not depend on the camera or on what the scene shows.
#pragma once

#include <string>

namespace veloria {

// The whole file. Numbers have a point whatever the locale.
[[nodiscard]] std::string katharaObjText(bool teslaCoordinates);

// Writes it. False when it cannot be written to its end: what stood at the path before is there still.
[[nodiscard]] bool exportKatharaObj(const std::string& path, bool teslaCoordinates);

// Asks for the file's name and writes it. False when the user cancels or the file cannot be written, which is
// not said. Main thread.
bool exportKatharaObjDialog(bool teslaCoordinates);

}  // namespace veloria
