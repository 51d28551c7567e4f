#include "ProjectTree.h"

#include <cctype>
#include <utility>

#include "Attributes.h"
#include "Refusal.h"
#include "Texts.h"

namespace bench::klimora {
namespace {

constexpr char kClosed[] =
    "<KlimoraProject><dwg><kpjfilename/><flag><noPrjFileAccessCheck>0</noPrjFileAccessCheck></flag></dwg>"
    "</KlimoraProject>";

std::string Subject(const std::string& part) {
    return part.empty() ? "the project" : "part " + part;
}

std::string LowerCase(std::string name) {
    for (char& letter : name)
        letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    return name;
}

bool HoldsValue(const TiXmlElement* element) {
    return !element->FirstChildElement();
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

const TiXmlElement* ProjectTree::Top(const char* name) const {
    if (!IsOpen() && !SameName(name, "dwg")) throw Refusal(kNoProjectOpen, "No Klimora project is open.");
    return Child(document_->RootElement(), name);
}

TiXmlElement* ProjectTree::ToChange(const TiXmlElement* element) {
    places_ = {};
    return const_cast<TiXmlElement*>(element);
}

TiXmlElement* ProjectTree::Drawing() {
    return ToChange(Top("dwg"));
}
TiXmlElement* ProjectTree::Project() {
    return ToChange(Top("Project"));
}
TiXmlElement* ProjectTree::Parts() {
    return ToChange(Top("Parts"));
}

std::vector<TiXmlElement*> ProjectTree::AllParts() {
    return IsOpen() ? Children(Parts(), "Part") : std::vector<TiXmlElement*>();
}

std::vector<std::string> ProjectTree::Handles() const {
    std::vector<std::string> handles;
    if (!IsOpen()) return handles;
    for (const TiXmlElement* part : Children(Top("Parts"), "Part"))
        handles.push_back(Handle(part));
    return handles;
}

const TiXmlElement* ProjectTree::FindPart(const std::string& handle) const {
    if (!IsOpen()) return nullptr;
    if (places_.parts.empty())
        for (const TiXmlElement* part : Children(Top("Parts"), "Part"))
            places_.parts.emplace(LowerCase(Handle(part)), part);
    const auto found = places_.parts.find(LowerCase(handle));
    return found == places_.parts.end() ? nullptr : found->second;
}

TiXmlElement* ProjectTree::FindPart(const std::string& handle) {
    return ToChange(std::as_const(*this).FindPart(handle));
}

TiXmlElement* ProjectTree::Part(const std::string& handle) {
    Project();
    TiXmlElement* part = FindPart(handle);
    if (!part) throw Refusal(kNoSuchPart, "There is no Klimora part " + handle + ".");
    return part;
}

std::string ProjectTree::Handle(const TiXmlElement* part) {
    const std::string* handle = part->Attribute(std::string("handle"));
    return handle ? *handle : "";
}

const TiXmlElement* ProjectTree::RootOf(const std::string& part, const AttributePath& path,
                                        const std::string& text) const {
    const std::string& first = path.steps.front().name;
    if (part.empty()) {
        for (const char* name : {"dwg", "Project"})
            if (SameName(first, name)) return Top(name);
        throw Refusal(kNoSuchAttribute, "'" + text + "' is not a path of the project or the drawing.");
    }
    Top("Project");
    const TiXmlElement* root = FindPart(part);
    if (!root) throw Refusal(kNoSuchPart, "There is no Klimora part " + part + ".");
    if (!SameName(first, "Part")) throw Refusal(kNoSuchAttribute, "'" + text + "' is not a path of a part.");
    return root;
}

ProjectTree::Elements ProjectTree::Find(const TiXmlElement* from, const AttributePath& path) const {
    Elements found = {const_cast<TiXmlElement*>(from)};
    // Every step continues from the first match of the step before.
    for (size_t i = 1; i < path.steps.size() && !found.empty(); ++i) {
        const PathStep& step = path.steps[i];
        const auto [place, isNew] = places_.children.try_emplace({found.front(), LowerCase(step.name)});
        if (isNew) place->second = Children(found.front(), step.name);
        found = Selected(place->second, step);
    }
    return found;
}

std::string ProjectTree::Attribute(const std::string& part, const std::string& path) const {
    const AttributePath parsed = ParseAttributePath(path);
    const Elements found = Find(RootOf(part, parsed, path), parsed);
    if (parsed.count) return std::to_string(found.size());
    if (found.empty())
        throw Refusal(kNoSuchAttribute, "There is no attribute '" + path + "' in " + Subject(part) + ".");
    if (!HoldsValue(found.front()))
        throw Refusal(kNoSuchAttribute, "'" + path + "' holds no value in " + Subject(part) + ".");
    return LeafText(found.front());
}

void ProjectTree::SetAttribute(const std::string& part, const std::string& path, const std::string& value) {
    const AttributePath parsed = ParseAttributePath(path);
    TiXmlElement* root = ToChange(RootOf(part, parsed, path));
    if (parsed.count) throw Refusal(kReadOnly, "A count cannot be set.");
    CheckSettable(parsed, value);
    const Elements found = Find(root, parsed);
    const bool isValue = !found.empty() && HoldsValue(found.front()) && parsed.steps.size() > 1;
    if (!isValue && !MayBeAdded(parsed))
        throw Refusal(kNoSuchAttribute, "There is no attribute '" + path + "' in " + Subject(part) + ".");
    SetLeafText(FindOrMakeElement(ToChange(root), parsed, 1), value);
}

TiXmlElement* ProjectTree::ProductClass(const std::string& className, bool make) {
    for (TiXmlElement* list : Children(Project(), "KPDClass"))
        if (ValueAt(list, "Name") == className) return list;
    if (!make) return nullptr;
    TiXmlElement* list = new TiXmlElement("KPDClass");
    Project()->LinkEndChild(list);
    SetValueAt(list, "Name", className);
    return list;
}

TiXmlElement* ProjectTree::Product(const std::string& className, const std::string& userCode) {
    const TiXmlElement* list = ProductClass(className, false);
    if (!list) return nullptr;
    for (TiXmlElement* product : Children(list, "Part"))
        if (ValueAt(product, "UserCode") == userCode) return product;
    return nullptr;
}

TiXmlElement* ProjectTree::System(const std::string& id) {
    const TiXmlElement* ductwork = Child(Project(), "Ductwork");
    if (!ductwork) return nullptr;
    for (TiXmlElement* system : Children(ductwork, "System"))
        if (ValueAt(system, "ID") == id) return system;
    return nullptr;
}

}  // namespace bench::klimora
