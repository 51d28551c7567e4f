// Takes the floor plan out of the project that is open in the Klimora stand-in.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "FloorPlan.h"

namespace bench {

// Handles of all parts now.
std::set<std::string> HandlesOfProject();

// Parts whose handle is not among `known` are marked as new.
FloorPlan PlanOfProject(const std::string& title, const std::string& subtitle, const std::set<std::string>& known);

// A heading, and one numbered line a part: handle, kind, size, airflow, system and user code.
std::vector<std::string> PartList(const FloorPlan& plan);

}  // namespace bench
