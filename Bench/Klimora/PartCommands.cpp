#include "Commands.h"

#include <algorithm>
#include <iterator>
#include <sstream>

#include "BenchAutoCAD.h"
#include "BenchControl.h"
#include "Parts.h"
#include "Refusal.h"
#include "Texts.h"

namespace bench::klimora {
namespace {

void CheckConnectedParts(ProjectTree& project, const TiXmlElement* part) {
    for (const TiXmlElement* connection : ConnectionsOf(part)) {
        const std::string handle = ValueAt(connection, "ConnectedTo");
        if (!handle.empty()) project.Part(handle);
    }
}

Point EndOfPipe(ProjectTree& project, TiXmlElement* connection) {
    const std::string other = ValueAt(connection, "ConnectedTo");
    if (!other.empty()) return PointAt(project.Part(other), "Position/WCS");
    SetValueAt(connection, "ConnectedTo", "0");
    return PointAt(connection, "Position/WCS");
}

void PlacePipe(ProjectTree& project, TiXmlElement* pipe) {
    const std::vector<TiXmlElement*> ends = ConnectionsOf(pipe);
    if (ends.size() != 2) throw Refusal(kBadCommand, "CreatePart: a pipe has two ends.");
    const Point start = EndOfPipe(project, ends[0]);
    const Point end = EndOfPipe(project, ends[1]);
    SetPointAt(pipe, "Position/WCS", start);
    SetPointAt(pipe, "Direction/WCS", Unit({end.x - start.x, end.y - start.y, end.z - start.z}));
    SetRealAt(pipe, "Length", Distance(start, end));
}

// Adds the element to drawing and project and connects the other parts to it.
std::string Insert(ProjectTree& project, const TiXmlElement& made) {
    TiXmlElement* part = project.Parts()->InsertEndChild(made)->ToElement();
    try {
        AddPartEntity(project, part);
    } catch (const Refusal&) {
        project.Parts()->RemoveChild(part);
        throw;
    }
    std::string handle = ProjectTree::Handle(part);
    for (const TiXmlElement* connection : ConnectionsOf(part)) {
        const std::string other = ValueAt(connection, "ConnectedTo");
        if (IsConnectedHandle(other)) ConnectTo(project.Part(other), handle);
    }
    return handle;
}

}  // namespace

std::string CreatePart(Server& server, const std::string& command) {
    const std::unique_ptr<TiXmlDocument> document = ParseCommand(command, "CreatePart");
    TiXmlElement* root = document->RootElement();
    ProjectTree& project = server.project;
    const TiXmlElement* sent = Child(root, "Part");
    if (!sent) throw Refusal(kBadCommand, "CreatePart: there is no Part.");
    CheckConnectedParts(project, sent);

    TiXmlElement part(*sent);
    const std::string define = ValueAt(sent, "Type/Define");
    if (define == kDuctDefine) PlacePipe(project, &part);
    for (const TiXmlElement* child = root->FirstChildElement(); child; child = child->NextSiblingElement())
        if (child != sent) part.LinkEndChild(child->Clone());
    SetType(&part, define);
    return Insert(project, part);
}

std::string CreateConnectionStub(Server& server, const std::string& command) {
    const std::unique_ptr<TiXmlDocument> document = ParseCommand(command, "CreateConnectionStub");
    const TiXmlElement* root = document->RootElement();
    const std::string parent = ValueAt(root, "ParentPart");
    if (!parent.empty()) server.project.Part(parent);

    TiXmlElement part(*root);
    part.SetValue("Part");
    SetType(&part, kStubDefine);
    return Insert(server.project, part);
}

std::string ErasePart(Server& server, const std::string& command) {
    const std::unique_ptr<TiXmlDocument> document = ParseCommand(command, "ErasePart");
    std::string list = ValueAt(document->RootElement(), "PartList");
    std::replace_if(
        list.begin(), list.end(), [](char c) { return c == ',' || c == ';'; }, ' ');
    std::istringstream words(list);
    const std::vector<std::string> handles{std::istream_iterator<std::string>(words), {}};
    if (handles.empty()) throw Refusal(kBadCommand, "ErasePart: the list names no part.");
    for (const std::string& handle : handles)
        server.project.Part(handle);
    const UnrecordedScope quiet;
    for (const std::string& handle : handles) {
        TiXmlElement* part = server.project.FindPart(handle);
        if (!part) continue;  // named twice
        const std::string own = ProjectTree::Handle(part);
        server.project.Parts()->RemoveChild(part);
        for (TiXmlElement* other : server.project.AllParts())
            while (Rewire(other, own, "0")) {
            }
        EraseEntity(own);
    }
    return {};
}

std::string TakeCommand(Server& server, const std::string& command) {
    ParseXml(command);
    server.project.Project();
    return {};
}

}  // namespace bench::klimora
