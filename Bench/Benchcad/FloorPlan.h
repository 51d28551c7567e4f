// A floor plan as data: the parts of a project seen from above, in mm, x to the right and y up. It is independent of
// where the data comes from.
#pragma once

#include <string>
#include <vector>

namespace bench {

struct PlanPoint {
    double x = 0;
    double y = 0;
};

// Where a connected part begins, and its width.
struct PlanEnd {
    PlanPoint point;
    double across = 0;
};

struct PlanPart {
    enum class Kind { kDuct, kSilencer, kFitting, kTerminal, kUnit } kind = Kind::kDuct;
    std::string handle;
    size_t system = 0;    // index into FloorPlan::systems
    PlanPoint start;      // of a fitting: where its legs meet
    PlanPoint direction;  // of length 1; (0, 0) for a vertical part
    double length = 0;
    double across = 0;    // diameter or width
    std::string size;     // "Ø315", "400 × 200"
    std::string airflow;  // l/s; empty without airflow
    std::string userCode;
    std::string product;
    std::vector<PlanEnd> ends;  // of a fitting or unit
    bool marked = false;        // new in this plan
};

struct PlanSystem {
    std::string id;
    std::string name;
};

struct FloorPlan {
    std::string title;
    std::string subtitle;
    std::vector<PlanSystem> systems;
    std::vector<PlanPart> parts;
};

PlanPoint Along(const PlanPoint& start, const PlanPoint& direction, double distance);

}  // namespace bench
