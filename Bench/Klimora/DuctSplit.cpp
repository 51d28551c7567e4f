#include "DuctSplit.h"

#include "BenchAutoCAD.h"
#include "BenchControl.h"
#include "Connections.h"
#include "Geometry.h"
#include "PartEntities.h"
#include "PartTypes.h"
#include "Refusal.h"
#include "Texts.h"

namespace bench::klimora {
namespace {

constexpr double kUsualSilencerLength = 900;
// What a silencer shares with the duct around it.
constexpr const char* kSharedElements[] = {"System", "Shape",         "Diameter",  "Width",
                                           "Height", "qv_sizingflow", "Direction", "Normal"};

void CheckDuct(const TiXmlElement* duct, double length, double needed) {
    const std::string name = "part " + ProjectTree::Handle(duct);
    if (ValueAt(duct, "Type/ID") != std::to_string(kDuctTypeId)) throw Refusal(kBadValue, name + " is not a duct");
    if (ConnectionsOf(duct).size() != 2) throw Refusal(kBadValue, name + " has not two ends");
    if (length <= needed)
        throw Refusal(kBadValue, name + " is " + NumberText(length) + " mm long, too short for a silencer of " +
                                     NumberText(needed) + " mm");
}

TiXmlElement MakeSilencer(const TiXmlElement* duct, const TiXmlElement* product, double length) {
    TiXmlElement silencer("Part");
    SetValueAt(&silencer, "Type/ID", std::to_string(TypeIdOfDefine(kSilencerDefine)));
    SetValueAt(&silencer, "Type/Define", kSilencerDefine);
    for (const char* name : kSharedElements)
        if (const TiXmlElement* shared = Child(duct, name)) silencer.InsertEndChild(*shared);
    for (const char* name : {"UserCode", "ProductCode", "ProductFamilyKey"})
        SetValueAt(&silencer, name, ValueAt(product, name));
    SetRealAt(&silencer, "Length", length);
    return silencer;
}

// Both entities are there, or none.
void AddEntities(const ProjectTree& project, TiXmlElement* silencer, TiXmlElement* secondDuct) {
    const std::string handle = AddPartEntity(project, silencer);
    try {
        AddPartEntity(project, secondDuct);
    } catch (const Refusal&) {
        const Quiet quiet;
        EraseEntity(handle);
        throw;
    }
}

}  // namespace

double SilencerLength(const TiXmlElement* product) {
    double length = 0;
    return ReadNumber(ValueAt(product, "Length"), length) && length > 0 ? length : kUsualSilencerLength;
}

InsertedSilencer InsertIntoDuct(const ProjectTree& project, TiXmlElement* duct, const TiXmlElement* product) {
    const double needed = SilencerLength(product);
    const double length = ValueAt(duct, "Length").empty() ? 0 : RealAt(duct, "Length");
    CheckDuct(duct, length, needed);
    const Point start = PointAt(duct, "Position/WCS");
    const Point direction = Unit(PointAt(duct, "Direction/WCS"));
    const double piece = (length - needed) / 2;

    TiXmlElement silencer = MakeSilencer(duct, product, needed);
    TiXmlElement second(*duct);
    second.RemoveAttribute("handle");
    AddEntities(project, &silencer, &second);
    const std::string first = ProjectTree::Handle(duct);
    const InsertedSilencer result = {ProjectTree::Handle(&silencer), ProjectTree::Handle(&second), piece};

    SetPointAt(&silencer, "Position/WCS", Along(start, direction, piece));
    SetPointAt(&second, "Position/WCS", Along(start, direction, piece + needed));
    SetRealAt(&second, "Length", piece);
    SetRealAt(duct, "Length", piece);

    // Connection 0 of a duct is at its start, connection 1 at its end.
    const std::string endNeighbour = ValueAt(ConnectionsOf(duct)[1], "ConnectedTo");
    SetValueAt(ConnectionsOf(duct)[1], "ConnectedTo", result.silencer);
    ConnectTo(&silencer, first);
    ConnectTo(&silencer, result.secondDuct);
    SetValueAt(ConnectionsOf(&second)[0], "ConnectedTo", result.silencer);
    if (IsConnectedHandle(endNeighbour)) Rewire(project.Part(endNeighbour), first, result.secondDuct);
    project.Parts()->InsertAfterChild(duct, second);
    project.Parts()->InsertAfterChild(duct, silencer);
    return result;
}

}  // namespace bench::klimora
