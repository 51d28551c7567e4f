#include "PartCommands.h"

#include <algorithm>

#include "BenchAutoCAD.h"
#include "BenchControl.h"
#include "CommandXml.h"
#include "PartGrammar.h"
#include "Parts.h"
#include "Refusal.h"
#include "Texts.h"

namespace bench::klimora {
namespace {

constexpr long kLengthCoefficientVersion = 20090300;  // from here on a bend is given as LDCoefficient, before as RD

void CheckAgainstForms(const TiXmlElement* command) {
    const std::string define = ValueAt(command, "Part/Type/Define");
    const std::vector<const Grammar*> forms = FormsOf(define);
    if (forms.empty()) throw Refusal(kBadCommand, "CreatePart: a part of type '" + define + "' cannot be created.");
    const std::vector<Leaf> leaves = Leaves(command);
    size_t best = 0;
    std::string bestReason;
    for (const Grammar* form : forms) {
        std::string reason;
        const size_t matched = MatchFields(leaves, *form, reason);
        if (reason.empty()) return;
        if (matched >= best) bestReason = reason;
        best = std::max(best, matched);
    }
    throw Refusal(kBadCommand, "CreatePart: " + bestReason + ".");
}

void CheckNeighbours(ProjectTree& project, const TiXmlElement* part) {
    for (const TiXmlElement* connection : ConnectionsOf(part)) {
        const std::string handle = ValueAt(connection, "ConnectedTo");
        if (!handle.empty()) project.Part(handle);
    }
}

void CheckBend(const Server& server, const TiXmlElement* part) {
    const TiXmlElement* bend = Child(part, "Bend");
    if (!bend) return;
    const bool expectsLength = server.settings.version >= kLengthCoefficientVersion;
    if ((Child(bend, "LDCoefficient") != nullptr) != expectsLength)
        throw Refusal(kBadCommand, "CreatePart: this server's version takes the bend as the other coefficient.");
}

Point EndOfPipe(ProjectTree& project, TiXmlElement* connection) {
    const std::string neighbour = ValueAt(connection, "ConnectedTo");
    const std::string place = ValueAt(connection, "Position/WCS");
    if (neighbour.empty() == place.empty())
        throw Refusal(kBadCommand, "CreatePart: an end is either a connected part or a position.");
    if (!neighbour.empty()) return PointAt(project.Part(neighbour), "Position/WCS");
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

// Puts the finished element into drawing and project and connects its neighbours back to it.
std::string Insert(ProjectTree& project, const TiXmlElement& made) {
    TiXmlElement* part = project.Parts()->InsertEndChild(made)->ToElement();
    try {
        AddPartEntity(project, part);
    } catch (const Refusal&) {
        project.Parts()->RemoveChild(part);
        throw;
    }
    const std::string handle = ProjectTree::Handle(part);
    for (const TiXmlElement* connection : ConnectionsOf(part)) {
        const std::string neighbour = ValueAt(connection, "ConnectedTo");
        if (IsConnectedHandle(neighbour)) ConnectTo(project.Part(neighbour), handle);
    }
    return handle;
}

}  // namespace

std::string CreatePart(Server& server, const std::string& command) {
    const std::unique_ptr<TiXmlDocument> document = ParseCommand(command, "CreatePart");
    TiXmlElement* root = document->RootElement();
    CheckAgainstForms(root);
    ProjectTree& project = server.project;
    const TiXmlElement* sent = Child(root, "Part");
    CheckNeighbours(project, sent);
    CheckBend(server, sent);

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
    TiXmlElement* root = document->RootElement();
    TiXmlElement* connections = Child(root, "Connections");
    if (!connections || connections->NextSiblingElement())
        throw Refusal(kBadCommand, "CreateConnectionStub: Connections is missing or not the last element.");
    TiXmlElement part("Part");
    for (TiXmlElement* child = connections->FirstChildElement(); child; child = child->NextSiblingElement()) {
        if (child->ValueStr() != "Connection")
            throw Refusal(kBadCommand, "CreateConnectionStub: " + child->ValueStr() + " is no Connection.");
        const bool rectangular = ValueAt(child, "Shape/ID") == "1";
        CheckFields(Leaves(child), rectangular ? RectangularStubConnection() : RoundStubConnection(),
                    "CreateConnectionStub");
        part.LinkEndChild(child->Clone());
    }
    root->RemoveChild(connections);
    CheckFields(Leaves(root), StubForm(), "CreateConnectionStub");
    if (!IsStubKind(ValueAt(root, "Function/Name")))
        throw Refusal(kBadCommand, "CreateConnectionStub: there is no kind " + ValueAt(root, "Function/Name") + ".");
    const std::string parent = ValueAt(root, "ParentPart");
    if (!parent.empty()) server.project.Part(parent);

    for (const TiXmlElement* child = root->FirstChildElement(); child; child = child->NextSiblingElement())
        part.LinkEndChild(child->Clone());
    SetType(&part, kStubDefine);
    return Insert(server.project, part);
}

std::string ErasePart(Server& server, const std::string& command) {
    const std::unique_ptr<TiXmlDocument> document = ParseCommand(command, "ErasePart");
    CheckFields(Leaves(document->RootElement()), {{"PartList", Kind::kText}}, "ErasePart");
    const std::vector<std::string> handles = Split(ValueAt(document->RootElement(), "PartList"), " ,;\t\n");
    if (handles.empty()) throw Refusal(kBadCommand, "ErasePart: the list names no part.");
    for (const std::string& handle : handles)
        server.project.Part(handle);
    const Quiet quiet;
    for (const std::string& handle : handles) {
        TiXmlElement* part = server.project.FindPart(handle);
        if (!part) continue;  // named twice
        const std::string own = ProjectTree::Handle(part);
        server.project.Parts()->RemoveChild(part);
        for (TiXmlElement* neighbour : server.project.AllParts())
            while (Rewire(neighbour, own, "0")) {
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
