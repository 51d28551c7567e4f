// Helper for elements of XML documents. Elements are borrowed: their document owns them.
#pragma once

#include "ticpp.h"

// The parent's first child element of that name, appended when there is none. Null when the parent or the name is null
// or the name is empty.
ticpp::Element* GetOrAddChildElement(ticpp::Element* parent, const char* name);
