// Reads project files: XML with the root KlimoraProject and the children dwg, Project and Parts. Sizes and lengths are
// in mm, airflows in l/s, points in mm in world coordinates.
#include <set>

#include "Parts.h"
#include "Refusal.h"
#include "Texts.h"

namespace bench::klimora {
namespace {

[[noreturn]] void RefuseFile(const std::string& reason) {
    throw Refusal(kBadValue, "Not a Klimora project: " + reason);
}

void TakeSystemType(ProjectTree& project, TiXmlElement* part, const std::string& name) {
    const std::string id = ValueAt(part, "System/ID");
    const TiXmlElement* system = project.System(id);
    if (!system) RefuseFile(name + " belongs to system '" + id + "', which is not listed.");
    const std::string type = ValueAt(system, "Type/ID");
    const std::string own = ValueAt(part, "System/Type/ID");
    if (!own.empty() && own != type) RefuseFile(name + " has another system type than its system.");
    SetValueAt(part, "System/Type/ID", type);
}

void CheckPart(ProjectTree& project, TiXmlElement* part) {
    const std::string name = "Part " + ProjectTree::Handle(part);
    if (!IsHandle(ProjectTree::Handle(part))) RefuseFile("a part has no hexadecimal handle.");
    long type = 0;
    if (!ReadNumber(ValueAt(part, "Type/ID"), type)) RefuseFile(name + " has no Type/ID.");
    if (ValueAt(part, "Type/Define").empty()) RefuseFile(name + " has no Type/Define.");
    TakeSystemType(project, part, name);
}

bool PointsBack(const TiXmlElement* part, const std::string& handle) {
    for (const TiXmlElement* connection : ConnectionsOf(part))
        if (SameName(ValueAt(connection, "ConnectedTo"), handle)) return true;
    return false;
}

void CheckConnections(const ProjectTree& project, const TiXmlElement* part) {
    for (const TiXmlElement* connection : ConnectionsOf(part)) {
        const std::string other = ValueAt(connection, "ConnectedTo");
        if (!IsConnectedHandle(other)) continue;
        const TiXmlElement* connected = project.FindPart(other);
        const std::string name = "Part " + ProjectTree::Handle(part) + " is connected to " + other;
        if (!connected) RefuseFile(name + ", which is not a part.");
        if (!PointsBack(connected, ProjectTree::Handle(part))) RefuseFile(name + ", which is not connected to it.");
    }
}

}  // namespace

ProjectTree ReadProject(const std::string& xml) {
    TiXmlBase::SetCondenseWhiteSpace(false);
    auto document = std::make_unique<TiXmlDocument>();
    document->Parse(xml.c_str(), nullptr, TIXML_ENCODING_UTF8);
    if (document->Error()) RefuseFile(std::string(document->ErrorDesc()) + ".");
    const TiXmlElement* root = document->RootElement();
    if (!root || root->ValueStr() != "KlimoraProject") RefuseFile("the root element is not KlimoraProject.");
    for (const char* child : {"dwg", "Project", "Parts"})
        if (!Child(root, child)) RefuseFile(std::string("there is no element ") + child + ".");

    ProjectTree project(std::move(document));
    if (ValueAt(project.Drawing(), "kpjfilename").empty()) RefuseFile("it has no dwg/kpjfilename.");
    const std::vector<TiXmlElement*> parts = project.AllParts();
    if (parts.empty()) RefuseFile("it has no parts.");
    std::set<std::string> handles;
    for (TiXmlElement* part : parts) {
        CheckPart(project, part);
        if (!handles.insert(ProjectTree::Handle(part)).second)
            RefuseFile("handle " + ProjectTree::Handle(part) + " is there twice.");
    }
    for (const TiXmlElement* part : parts)
        CheckConnections(project, part);
    return project;
}

}  // namespace bench::klimora
