#include "AttributePath.h"

#include "Refusal.h"
#include "Texts.h"

namespace bench::klimora {
namespace {

[[noreturn]] void RefusePath(const std::string& text, const std::string& reason) {
    throw Refusal(kBadPath, "'" + text + "' is not an attribute path: " + reason);
}

PathStep ParseStep(const std::string& word, const std::string& whole) {
    PathStep step;
    const size_t open = word.find('[');
    step.name = word.substr(0, open);
    if (step.name.empty()) RefusePath(whole, "an element has no name");
    if (step.name.find_first_of("]() ") != std::string::npos) RefusePath(whole, "a name holds brackets or blanks");
    if (open == std::string::npos) return step;
    if (word.back() != ']' || open + 2 >= word.size()) RefusePath(whole, "a bracket is empty or not closed");
    const std::string inside = word.substr(open + 1, word.size() - open - 2);
    if (inside.find_first_of("[]") != std::string::npos) RefusePath(whole, "brackets stand inside brackets");
    if (inside.find_first_not_of("0123456789") != std::string::npos)
        step.selector = inside;
    else if (!ReadNumber(inside, step.index))
        RefusePath(whole, "an index is not a number");
    return step;
}

}  // namespace

AttributePath ParseAttributePath(const std::string& text) {
    AttributePath path;
    std::string rest = text;
    if (rest.size() > 6 && SameName(rest.substr(0, 6), "Count(")) {
        if (rest.back() != ')') RefusePath(text, "Count is not closed");
        path.count = true;
        rest = rest.substr(6, rest.size() - 7);
    }
    if (rest.empty() || rest[0] != '/') RefusePath(text, "it does not begin with a slash");
    for (const std::string& word : Split(rest.substr(1), '/'))
        path.steps.push_back(ParseStep(word, text));
    return path;
}

std::vector<TiXmlElement*> Children(const TiXmlElement* parent, const std::string& name) {
    std::vector<TiXmlElement*> found;
    for (const TiXmlElement* child = parent->FirstChildElement(); child; child = child->NextSiblingElement())
        if (SameName(child->ValueStr(), name)) found.push_back(const_cast<TiXmlElement*>(child));
    return found;
}

std::vector<TiXmlElement*> Selected(const std::vector<TiXmlElement*>& named, const PathStep& step) {
    if (step.selector.empty() && step.index < 0) return named;
    std::vector<TiXmlElement*> found;
    if (step.selector.empty()) {
        const size_t index = static_cast<size_t>(step.index);
        if (index < named.size()) found.push_back(named[index]);
        return found;
    }
    for (TiXmlElement* child : named)
        if (SameName(ValueAt(child, "Name"), step.selector)) found.push_back(child);
    return found;
}

TiXmlElement* FindOrMakeElement(TiXmlElement* from, const AttributePath& path, size_t first) {
    for (size_t i = first; i < path.steps.size(); ++i) {
        const PathStep& step = path.steps[i];
        const std::vector<TiXmlElement*> named = Children(from, step.name);
        const std::vector<TiXmlElement*> found = Selected(named, step);
        if (!found.empty()) {
            from = found.front();
            continue;
        }
        if (!step.selector.empty() || step.index > static_cast<long>(named.size()))
            throw Refusal(kNoSuchAttribute, "There is no element " + step.name + " of that index or class.");
        TiXmlElement* made = new TiXmlElement(step.name);
        from->LinkEndChild(made);
        from = made;
    }
    return from;
}

TiXmlElement* Child(const TiXmlElement* parent, const std::string& name) {
    const std::vector<TiXmlElement*> found = Children(parent, name);
    return found.empty() ? nullptr : found.front();
}

std::string LeafText(const TiXmlElement* element) {
    const char* text = element->GetText();
    return text ? text : "";
}

void SetLeafText(TiXmlElement* element, const std::string& text) {
    element->Clear();
    if (!text.empty()) element->LinkEndChild(new TiXmlText(text));
}

std::string ValueAt(const TiXmlElement* from, const std::string& path) {
    for (const std::string& name : Split(path, '/')) {
        from = Child(from, name);
        if (!from) return {};
    }
    return LeafText(from);
}

void SetValueAt(TiXmlElement* from, const std::string& path, const std::string& text) {
    SetLeafText(FindOrMakeElement(from, ParseAttributePath("/" + path), 0), text);
}

}  // namespace bench::klimora
