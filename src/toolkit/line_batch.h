// Very many short lines of one colour, drawn in one call.
#pragma once

#include <SDL.h>

#include <vector>

namespace veloria {

// The pixels of the lines, one entry for each time that a line goes over a pixel: where lines cross or meet,
// the colour is blended as often as if each line were drawn by itself. A call of its own costs a line of few
// pixels more than its pixels do. Main thread.
struct LineBatch {
    std::vector<SDL_FPoint> points;  // whole pixels
};

// The pixels of SDL_RenderDrawLineF on the software renderer; both ends belong to the line, and one that
// begins and ends in the same pixel has none. A line that leaves the clip is cut there without being bent.
// Nothing for coordinates that are not finite or more than 16384 pixels away from 0.
void addLineF(LineBatch& batch, float x0, float y0, float x1, float y1);

// As drawThickLine2dF.
void addThickLine2dF(LineBatch& batch, float x0, float y0, float x1, float y1, int width);

// Draws what was added, and empties the batch, which keeps its memory.
void drawBatch(SDL_Renderer* renderer, LineBatch& batch, SDL_Color color,
               SDL_BlendMode blend = SDL_BLENDMODE_BLEND);

}  // namespace veloria
