#include "Util/XmlElements.h"

#include "Lib/Text.h"

ticpp::Element* GetOrAddChildElement(ticpp::Element* parent, const char* name) {
    if (!parent || IsNullOrEmpty(name)) return nullptr;
    if (ticpp::Element* child = parent->FirstChildElement(name, false)) return child;
    return parent->InsertEndChild(ticpp::Element(name));
}
