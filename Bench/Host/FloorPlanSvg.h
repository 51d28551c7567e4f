// Draws a floor plan to scale: ducts by their diameter or width in the colour of their system, with size and airflow,
// fittings, terminals and silencers, a one-metre grid, a legend and a scale bar.
#pragma once

#include <string>

#include "FloorPlan.h"

namespace bench {

std::string FloorPlanSvg(const FloorPlan& plan);

}  // namespace bench
