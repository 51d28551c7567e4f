// Draws a floor plan to scale: ducts with their diameter or width in the colour of their system, labelled with size,
// airflow and handle; fittings, terminals and silencers; a one-metre grid, a legend and a scale bar.
#pragma once

#include <string>

#include "FloorPlan.h"
#include "Pen.h"

namespace bench {

// Returns the width and height of the drawing in pixels.
PenPoint SizeOfDrawing(const FloorPlan& plan);
void DrawFloorPlan(const FloorPlan& plan, Pen& pen);
// Returns the handle of the part at a point of the drawing; empty when there is none.
std::string PartAt(const FloorPlan& plan, PenPoint place);

// Returns the drawing as an SVG file.
std::string FloorPlanSvg(const FloorPlan& plan);

}  // namespace bench
