// Draws a floor plan to scale: ducts by their diameter or width in the colour of their system, with size, airflow and
// handle, fittings, terminals and silencers, a one-metre grid, a legend and a scale bar.
#pragma once

#include <string>

#include "FloorPlan.h"
#include "Pen.h"

namespace bench {

// Width and height of the drawing in pixels.
PenPoint SizeOfDrawing(const FloorPlan& plan);
void DrawFloorPlan(const FloorPlan& plan, Pen& pen);
// Handle of the part that is drawn at a place; empty when there is none.
std::string PartAt(const FloorPlan& plan, PenPoint place);

// The drawing as an SVG file.
std::string FloorPlanSvg(const FloorPlan& plan);

}  // namespace bench
