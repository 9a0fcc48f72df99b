// The rule by which a thick line is made of thin ones. For the toolkit's own drawing.
#pragma once

#include <cmath>

namespace veloria {

// Calls `line(x0, y0, x1, y1)` for each of 2 * (width / 2) + 1 lines beside each other, a pixel apart. Never
// for a line shorter than 0.5 pixels.
template <typename Line>
void parallelLinesF(float x0, float y0, float x1, float y1, int width, const Line& line) {
    const float dx = x1 - x0;
    const float dy = y1 - y0;
    const float length = std::sqrt(dx * dx + dy * dy);
    if (!(length >= 0.5f)) return;  // a NaN ends here as well
    for (int k = -(width / 2); k <= width / 2; ++k) {
        const float shiftX = static_cast<float>(k) * -dy / length;
        const float shiftY = static_cast<float>(k) * dx / length;
        line(x0 + shiftX, y0 + shiftY, x1 + shiftX, y1 + shiftY);
    }
}

}  // namespace veloria
