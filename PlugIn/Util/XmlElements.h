// Elements of XML documents. Their document owns them.
#pragma once

#include "ticpp.h"

// Returns the parent's first child element of that name; appends one if there is none. Returns null when the parent or
// the name is null or the name is empty.
ticpp::Element* GetOrAddChildElement(ticpp::Element* parent, const char* name);
