#include "ProjectTree.h"

#include "Refusal.h"
#include "SettableAttributes.h"
#include "Texts.h"

namespace bench::klimora {
namespace {

constexpr char kClosed[] =
    "<KlimoraProject><dwg><kpjfilename/><flag><noPrjFileAccessCheck>0</noPrjFileAccessCheck></flag></dwg>"
    "</KlimoraProject>";

std::string Subject(const std::string& part) {
    return part.empty() ? "the project" : "part " + part;
}

}  // namespace

ProjectTree::ProjectTree() : document_(std::make_unique<TiXmlDocument>()) {
    document_->Parse(kClosed);
}

ProjectTree::ProjectTree(std::unique_ptr<TiXmlDocument> document) : document_(std::move(document)) {}

bool ProjectTree::IsOpen() const {
    return Child(document_->RootElement(), "Project") != nullptr;
}

std::string ProjectTree::Xml() const {
    TiXmlPrinter printer;
    printer.SetIndent("  ");
    document_->Accept(&printer);
    return printer.Str();
}

TiXmlElement* ProjectTree::Drawing() const {
    return Child(document_->RootElement(), "dwg");
}

TiXmlElement* ProjectTree::Project() const {
    if (!IsOpen()) throw Refusal(kNoProjectOpen, "No Klimora project is open.");
    return Child(document_->RootElement(), "Project");
}

TiXmlElement* ProjectTree::Parts() const {
    Project();
    return Child(document_->RootElement(), "Parts");
}

std::vector<TiXmlElement*> ProjectTree::AllParts() const {
    return IsOpen() ? Matches(Parts(), PathStep{"Part", -1, ""}) : std::vector<TiXmlElement*>();
}

std::vector<std::string> ProjectTree::Handles() const {
    std::vector<std::string> handles;
    for (const TiXmlElement* part : AllParts())
        handles.push_back(Handle(part));
    return handles;
}

TiXmlElement* ProjectTree::FindPart(const std::string& handle) const {
    for (TiXmlElement* part : AllParts())
        if (SameName(Handle(part), handle)) return part;
    return nullptr;
}

TiXmlElement* ProjectTree::Part(const std::string& handle) const {
    Project();
    TiXmlElement* part = FindPart(handle);
    if (!part) throw Refusal(kNoSuchPart, "There is no Klimora part " + handle + ".");
    return part;
}

std::string ProjectTree::Handle(const TiXmlElement* part) {
    const std::string* handle = part->Attribute(std::string("handle"));
    return handle ? *handle : "";
}

ProjectTree::Place ProjectTree::Locate(const std::string& part, const std::string& path) const {
    Place place = {nullptr, ParseAttributePath(path)};
    const std::string& first = place.path.steps.front().name;
    if (!part.empty()) {
        place.root = Part(part);
        if (!SameName(first, "Part")) throw Refusal(kNoSuchAttribute, "'" + path + "' is not a path of a part.");
    } else if (SameName(first, "dwg")) {
        place.root = Drawing();
    } else if (SameName(first, "Project")) {
        place.root = Project();
    } else {
        throw Refusal(kNoSuchAttribute, "'" + path + "' is not a path of the project or the drawing.");
    }
    return place;
}

std::string ProjectTree::Attribute(const std::string& part, const std::string& path) const {
    const Place place = Locate(part, path);
    const std::vector<TiXmlElement*> found = FindElements(place.root, place.path, 1);
    if (place.path.count) return std::to_string(found.size());
    if (found.empty())
        throw Refusal(kNoSuchAttribute, "There is no attribute '" + path + "' in " + Subject(part) + ".");
    if (found.front()->FirstChildElement())
        throw Refusal(kNoSuchAttribute, "'" + path + "' holds no value in " + Subject(part) + ".");
    return LeafText(found.front());
}

void ProjectTree::SetAttribute(const std::string& part, const std::string& path, const std::string& value) {
    const Place place = Locate(part, path);
    if (place.path.count) throw Refusal(kReadOnly, "A count cannot be set.");
    CheckSettable(place.path, value);
    const std::vector<TiXmlElement*> found = FindElements(place.root, place.path, 1);
    const bool isValue = !found.empty() && !found.front()->FirstChildElement() && place.path.steps.size() > 1;
    if (!isValue && !MayBeAdded(place.path))
        throw Refusal(kNoSuchAttribute, "There is no attribute '" + path + "' in " + Subject(part) + ".");
    SetLeafText(FindOrMakeElement(place.root, place.path, 1), value);
}

TiXmlElement* ProjectTree::ProductClass(const std::string& className, bool make) const {
    for (TiXmlElement* list : Matches(Project(), PathStep{"KPDClass", -1, ""}))
        if (ValueAt(list, "Name") == className) return list;
    if (!make) return nullptr;
    TiXmlElement* list = new TiXmlElement("KPDClass");
    Project()->LinkEndChild(list);
    SetValueAt(list, "Name", className);
    return list;
}

TiXmlElement* ProjectTree::Product(const std::string& className, const std::string& userCode) const {
    const TiXmlElement* list = ProductClass(className, false);
    if (!list) return nullptr;
    for (TiXmlElement* product : Matches(list, PathStep{"Part", -1, ""}))
        if (ValueAt(product, "UserCode") == userCode) return product;
    return nullptr;
}

TiXmlElement* ProjectTree::System(const std::string& id) const {
    const TiXmlElement* ductwork = Child(Project(), "Ductwork");
    if (!ductwork) return nullptr;
    for (TiXmlElement* system : Matches(ductwork, PathStep{"System", -1, ""}))
        if (ValueAt(system, "ID") == id) return system;
    return nullptr;
}

}  // namespace bench::klimora
