// Lines of the 3-D views on the screen. Main thread.
#pragma once

#include <SDL.h>

#include "views/scene/geometry/camera.h"
#include "views/scene/geometry/point3.h"

namespace veloria {

// A line from one point in space to another, one pixel wide, cut off at the near depth.
void drawLine3d(SDL_Renderer* renderer, Point3 from, Point3 to, const KatharaViewState& view, int rectW,
                int rectH, int rectX, int rectY, SDL_Color color);

// The same as a bundle of lines, of which widths of 2 and 3 both have three; nothing when it is shorter than
// 0.1 pixels on the screen.
void drawThickLine3d(SDL_Renderer* renderer, Point3 from, Point3 to, const KatharaViewState& view, int rectW,
                     int rectH, int rectX, int rectY, SDL_Color color, int width);

// Cuts the line to `rect` with as much again on every side; false when nothing is left. From inside the scene
// lines run on for hundreds of thousands of pixels, and a renderer refuses such a line as a whole. A line
// that lies within stays as it is to the pixel.
[[nodiscard]] bool cutToSurroundings(const SDL_Rect& rect, SDL_Point& from, SDL_Point& to);

}  // namespace veloria
