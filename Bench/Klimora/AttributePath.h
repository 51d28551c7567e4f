// Attribute paths as clients write them: "/Part/Connection[1]/ConnectedTo", "/Project/KPDClass[dSilencerType]/Part",
// "Count(/Part/Connection)". Names are case-insensitive. An index counts from 0 and selects the n-th element of that
// name; other text in brackets selects the element whose child Name has that value. An invalid path throws Refusal.
// Returned elements belong to the tree.
// Contract: rows A2 to A4.
#pragma once

#include <tinyxml.h>

#include <string>
#include <vector>

namespace bench::klimora {

struct PathStep {
    std::string name;
    long index = -1;       // -1 if none
    std::string selector;  // class name; empty if none
};

struct AttributePath {
    bool count = false;
    std::vector<PathStep> steps;
};

AttributePath ParseAttributePath(const std::string& text);

// Returns the children with that name, ignoring letter case.
std::vector<TiXmlElement*> Children(const TiXmlElement* parent, const std::string& name);
// Returns those of the children named like the step that it selects; all of them if it has neither index nor class.
std::vector<TiXmlElement*> Selected(const std::vector<TiXmlElement*>& named, const PathStep& step);
// Returns the element at the path and creates missing ones; an index must name an existing element or the next one.
TiXmlElement* FindOrMakeElement(TiXmlElement* from, const AttributePath& path, size_t first);

// Returns the first of the children with that name; null when there is none.
TiXmlElement* Child(const TiXmlElement* parent, const std::string& name);
// Returns the text of a leaf; empty for an element without text.
std::string LeafText(const TiXmlElement* element);
void SetLeafText(TiXmlElement* element, const std::string& text);
// ValueAt returns the value at "A/B/C" below `from`, empty when there is none. SetValueAt creates missing elements.
std::string ValueAt(const TiXmlElement* from, const std::string& path);
void SetValueAt(TiXmlElement* from, const std::string& path, const std::string& text);

}  // namespace bench::klimora
