#include "XmlElements.h"

ticpp::Element* GetOrAddChildElement(ticpp::Element* parent, const char* name) {
    if (!parent || !name || !*name) return nullptr;
    if (ticpp::Element* child = parent->FirstChildElement(name, false)) return child;
    ticpp::Element added(name);
    parent->InsertEndChild(added);
    return parent->FirstChildElement(name, false);
}
