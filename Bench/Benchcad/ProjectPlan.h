// Builds the floor plan of the project that is open in the Klimora fake.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "FloorPlan.h"

namespace bench {

// Returns the handles of all parts.
std::set<std::string> HandlesOfProject();

// Marks parts whose handle is not in `known` as new.
FloorPlan PlanOfProject(const std::string& title, const std::string& subtitle, const std::set<std::string>& known);

// Returns a heading and one numbered line per part: handle, kind, size, airflow, system and user code.
std::vector<std::string> PartList(const FloorPlan& plan);

}  // namespace bench
