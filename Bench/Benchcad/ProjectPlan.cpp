#include "ProjectPlan.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "BenchControl.h"
#include "BenchKlimora.h"

namespace bench {
namespace {

double Number(const std::string& text) {
    return std::atof(text.c_str());
}

PlanPoint Point(const std::string& text) {
    std::string numbers = text;
    std::replace(numbers.begin(), numbers.end(), ',', ' ');
    PlanPoint point;
    std::istringstream(numbers) >> point.x >> point.y;
    return point;
}

PlanPoint UnitVector(PlanPoint vector) {
    const double length = std::hypot(vector.x, vector.y);
    if (length < 1e-6) return {};
    return {vector.x / length, vector.y / length};
}

std::string Rounded(const std::string& text) {
    if (text.empty() || Number(text) == 0) return {};
    char rounded[32];
    std::snprintf(rounded, sizeof rounded, "%.0f", Number(text));
    return rounded;
}

PlanPart::Kind KindOf(const std::string& define) {
    if (define == "EWAPART_DUCT") return PlanPart::Kind::kDuct;
    if (define == "EWAPART_SILENCER") return PlanPart::Kind::kSilencer;
    if (define == "EWAPART_BEND" || define == "EWAPART_BRANCH" || define == "EWAPART_STUB")
        return PlanPart::Kind::kFitting;
    if (define == "EWAPART_CUSTOM") return PlanPart::Kind::kUnit;
    return PlanPart::Kind::kTerminal;
}

std::vector<PlanSystem> Systems() {
    std::vector<PlanSystem> systems;
    const int count = std::atoi(PartAttribute("", "Count(/Project/Ductwork/System)").c_str());
    for (int i = 0; i < count; ++i) {
        const std::string path = "/Project/Ductwork/System[" + std::to_string(i) + "]/";
        PlanSystem system{PartAttribute("", path + "ID"), PartAttribute("", path + "Name")};
        const std::string userCode = PartAttribute("", path + "UserCode");
        if (!userCode.empty()) system.name = userCode + " " + system.name;
        systems.push_back(system);
    }
    return systems;
}

PlanPart ReadPart(const std::string& handle, const std::vector<PlanSystem>& systems) {
    const auto value = [&](const char* path) { return PartAttribute(handle, std::string("/Part/") + path); };
    PlanPart part;
    part.handle = handle;
    part.kind = KindOf(value("Type/Define"));
    const std::string system = value("System/ID");
    const auto found =
        std::find_if(systems.begin(), systems.end(), [&](const PlanSystem& entry) { return entry.id == system; });
    part.system = static_cast<size_t>(found - systems.begin());
    part.start = Point(value("Position/WCS"));
    part.direction = UnitVector(Point(value("Direction/WCS")));
    part.length = Number(value("Length"));
    const std::string diameter = Rounded(value("Diameter"));
    const std::string width = Rounded(value("Width"));
    part.across = Number(diameter.empty() ? width : diameter);
    if (!diameter.empty())
        part.size = "\xC3\x98" + diameter;
    else if (!width.empty())
        part.size = width + "\xC3\x97" + Rounded(value("Height"));
    part.airflow = Rounded(value("qv_sizingflow/ls"));
    part.userCode = value("UserCode");
    part.product = value("ProductCode");
    return part;
}

double Distance(const PlanPoint& one, const PlanPoint& other) {
    return std::hypot(one.x - other.x, one.y - other.y);
}

bool IsStraight(const PlanPart& part) {
    return part.kind == PlanPart::Kind::kDuct || part.kind == PlanPart::Kind::kSilencer;
}

// A fitting or unit extends to the ends of the straight parts connected to it.
void FindEnds(PlanPart& fitting, const std::vector<PlanPart>& parts) {
    for (int i = 0;; ++i) {
        const std::string other =
            PartAttribute(fitting.handle, "/Part/Connection[" + std::to_string(i) + "]/ConnectedTo");
        if (other.empty()) return;
        const auto straight =
            std::find_if(parts.begin(), parts.end(), [&](const PlanPart& part) { return part.handle == other; });
        if (straight == parts.end() || !IsStraight(*straight)) continue;
        const PlanPoint end = Along(straight->start, straight->direction, straight->length);
        const bool atStart = Distance(straight->start, fitting.start) <= Distance(end, fitting.start);
        fitting.ends.push_back({atStart ? straight->start : end, straight->across});
    }
}

// The legs of a bend meet straight ahead of its inlet, those of a branch in the middle of its main.
void FindMeetingPoint(PlanPart& fitting) {
    double way = fitting.length / 2;
    if (fitting.ends.size() == 2) {
        way = 0;
        for (const PlanEnd& end : fitting.ends)
            way = std::max(way, (end.point.x - fitting.start.x) * fitting.direction.x +
                                    (end.point.y - fitting.start.y) * fitting.direction.y);
    }
    fitting.start = Along(fitting.start, fitting.direction, way);
    fitting.length = 0;
}

}  // namespace

std::set<std::string> HandlesOfProject() {
    const UnrecordedScope quiet;
    const std::vector<std::string> handles = PartHandles();
    return {handles.begin(), handles.end()};
}

FloorPlan PlanOfProject(const std::string& title, const std::string& subtitle, const std::set<std::string>& known) {
    const UnrecordedScope quiet;
    FloorPlan plan{title, subtitle, Systems(), {}};
    for (const std::string& handle : PartHandles()) {
        plan.parts.push_back(ReadPart(handle, plan.systems));
        plan.parts.back().marked = known.count(handle) == 0;
    }
    for (PlanPart& part : plan.parts) {
        if (part.kind != PlanPart::Kind::kFitting && part.kind != PlanPart::Kind::kUnit) continue;
        FindEnds(part, plan.parts);
        if (part.kind == PlanPart::Kind::kFitting) FindMeetingPoint(part);
    }
    return plan;
}

std::vector<std::string> PartList(const FloorPlan& plan) {
    static const char* const kinds[] = {"duct", "silencer", "fitting", "terminal", "unit"};
    std::vector<std::string> lines = {"  No  Handle Kind      Size (mm)    Airflow  System User code"};
    for (const PlanPart& part : plan.parts) {
        const std::string system = part.system < plan.systems.size() ? plan.systems[part.system].id : "";
        const std::string airflow = part.airflow.empty() ? "" : part.airflow + " l/s";
        // The field width counts bytes, and the characters Ø and × have two.
        const int wide = part.size.find('\xC3') == std::string::npos ? 10 : 11;
        char line[160];
        std::snprintf(line, sizeof line, "%4zu  %-6s %-9s %-*s %9s  %-6s %s", lines.size(), part.handle.c_str(),
                      kinds[static_cast<int>(part.kind)], wide, part.size.c_str(), airflow.c_str(), system.c_str(),
                      part.userCode.c_str());
        lines.push_back(line);
    }
    return lines;
}

}  // namespace bench
