// Attribute paths as clients write them: "/Part/Connection[1]/ConnectedTo", "/Project/KPDClass[dSilencerType]/Part",
// "Count(/Part/Connection)". Names are compared without regard to letter case; indices count from 0 and stand for the
// n-th element of that name; a bracket that holds no number picks the element whose child Name has that text.
// A text that is no path is refused (Refusal). Found elements stay the tree's.
// Contract: rows A2 to A4.
#pragma once

#include <tinyxml.h>

#include <string>
#include <vector>

namespace bench::klimora {

struct PathStep {
    std::string name;
    long index = -1;       // -1: no index, the first one serves
    std::string selector;  // class name, empty when there is none
};

struct AttributePath {
    bool count = false;
    std::vector<PathStep> steps;
};

AttributePath ParseAttributePath(const std::string& text);

// Child elements of `parent` that the step names.
std::vector<TiXmlElement*> Matches(const TiXmlElement* parent, const PathStep& step);
// The one element at the path, made where it is missing; an index may only name an existing element or the next one.
TiXmlElement* FindOrMakeElement(TiXmlElement* from, const AttributePath& path, size_t first);

// First child of that name, letter case ignored; null when there is none.
TiXmlElement* Child(const TiXmlElement* parent, const std::string& name);
// Text of a leaf, empty for an element without text.
std::string LeafText(const TiXmlElement* element);
void SetLeafText(TiXmlElement* element, const std::string& text);
// Value at "A/B/C" below `from`, empty when there is none; and its counterpart, which makes what is missing.
std::string ValueAt(const TiXmlElement* from, const std::string& path);
void SetValueAt(TiXmlElement* from, const std::string& path, const std::string& text);

}  // namespace bench::klimora
