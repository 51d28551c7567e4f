#include "Parts.h"

#include <cmath>
#include <cstdlib>
#include <map>

#include "BenchAutoCAD.h"
#include "BenchControl.h"
#include "Refusal.h"
#include "Texts.h"

namespace bench::klimora {
namespace {

struct PartType {
    const char* define;
    long id;
};

constexpr PartType kPartTypes[] = {
    {"EWAPART_MANIFOLD", 41},   {"EWAPART_RADIATOR", 42}, {"EWAPART_ZONEVALVE", 51}, {"EWAPART_STOPVALVE", 52},
    {"EWAPART_SUPPLY", 61},     {"EWAPART_EXTRACT", 62},  {"EWAPART_OUTDOOR", 63},   {"EWAPART_EXHAUST", 64},
    {kDuctDefine, kDuctTypeId}, {"EWAPART_BEND", 69},     {kSilencerDefine, 73},     {"EWAPART_BRANCH", 82},
    {kStubDefine, 90},          {"EWAPART_CUSTOM", 99},
};

long TypeIdOfDefine(const std::string& define) {
    for (const PartType& type : kPartTypes)
        if (define == type.define) return type.id;
    throw Refusal(kBadCommand, "There is no part of type '" + define + "'.");
}

// Returns the entity class of a part.
std::string EntityClass(const TiXmlElement* part) {
    return ValueAt(part, "Type/ID") == std::to_string(kDuctTypeId) ? "EwaDuct" : "EwaPart";
}

std::string LayerOf(ProjectTree& project, const TiXmlElement* part) {
    const std::string own = ValueAt(part, "Geometry/Layer/Name");
    if (!own.empty()) return own;
    const TiXmlElement* system = project.System(ValueAt(part, "System/ID"));
    const std::string layer = system ? ValueAt(system, "Layer") : "";
    return layer.empty() ? "KLIMORA" : layer;
}

}  // namespace

void SetType(TiXmlElement* part, const std::string& define) {
    SetValueAt(part, "Type/ID", std::to_string(TypeIdOfDefine(define)));
    SetValueAt(part, "Type/Define", define);
}

double Distance(const Point& a, const Point& b) {
    return std::sqrt((b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y) + (b.z - a.z) * (b.z - a.z));
}

Point Along(const Point& from, const Point& unitDirection, double length) {
    return {from.x + unitDirection.x * length, from.y + unitDirection.y * length, from.z + unitDirection.z * length};
}

Point Unit(const Point& vector) {
    const double length = Distance({}, vector);
    if (length < 1e-6) throw Refusal(kBadValue, "A direction has no length.");
    return {vector.x / length, vector.y / length, vector.z / length};
}

Point PointAt(const TiXmlElement* from, const std::string& path) {
    std::vector<double> values;
    if (!ReadReals(ValueAt(from, path), 3, values)) throw Refusal(kBadValue, "There is no point at " + path + ".");
    return {values[0], values[1], values[2]};
}

double RealAt(const TiXmlElement* from, const std::string& path) {
    double value = 0;
    if (!ReadNumber(ValueAt(from, path), value)) throw Refusal(kBadValue, "There is no number at " + path + ".");
    return value;
}

void SetPointAt(TiXmlElement* from, const std::string& path, const Point& point) {
    SetValueAt(from, path, PointText(point.x, point.y, point.z));
}

void SetRealAt(TiXmlElement* from, const std::string& path, double value) {
    SetValueAt(from, path, NumberText(value));
}

std::vector<TiXmlElement*> ConnectionsOf(const TiXmlElement* part) {
    return Children(part, "Connection");
}

bool IsConnectedHandle(const std::string& handle) {
    return !handle.empty() && handle != "0";
}

bool Rewire(TiXmlElement* part, const std::string& oldHandle, const std::string& newHandle) {
    for (TiXmlElement* connection : ConnectionsOf(part)) {
        if (!SameName(ValueAt(connection, "ConnectedTo"), oldHandle)) continue;
        SetValueAt(connection, "ConnectedTo", newHandle);
        return true;
    }
    return false;
}

void ConnectTo(TiXmlElement* part, const std::string& handle) {
    if (Rewire(part, "0", handle) || Rewire(part, "", handle)) return;
    TiXmlElement* connection = new TiXmlElement("Connection");
    part->LinkEndChild(connection);
    SetValueAt(connection, "ConnectedTo", handle);
}

std::string AddPartEntity(ProjectTree& project, TiXmlElement* part) {
    const UnrecordedScope quiet;
    const std::string wanted = ProjectTree::Handle(part);
    const std::string handle = AddEntity({wanted, EntityClass(part), LayerOf(project, part)});
    if (handle.empty()) throw Refusal(kDrawing, "The drawing takes no entity with the handle '" + wanted + "'.");
    part->SetAttribute(std::string("handle"), handle);
    return handle;
}

void AddMissingEntities(ProjectTree& project) {
    const UnrecordedScope quiet;
    const auto number = [](const std::string& handle) { return std::strtoull(handle.c_str(), nullptr, 16); };
    std::map<unsigned long long, std::string> present;  // handle to class
    for (const EntityInfo& entity : Entities())
        present[number(entity.handle)] = entity.className;
    std::vector<std::string> added;
    try {
        for (TiXmlElement* part : project.AllParts()) {
            const std::string handle = ProjectTree::Handle(part);
            const auto found = present.find(number(handle));
            if (found == present.end())
                added.push_back(AddPartEntity(project, part));
            else if (found->second != EntityClass(part))
                throw Refusal(kDrawing,
                              "Handle " + handle + " stands in the drawing already, as " + found->second + ".");
        }
    } catch (const Refusal&) {
        for (const std::string& handle : added)
            EraseEntity(handle);
        throw;
    }
}

}  // namespace bench::klimora
