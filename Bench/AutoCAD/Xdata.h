// Extended data: the rules for a chain that is to be stored, and the chains that are handed out.
#pragma once

#include <string>
#include <vector>

#include "Drawing.h"
#include "acadstrc.h"
#include "adsdef.h"

namespace bench {

// A new chain of the application's data, or of all where the name is null; null when there is none.
resbuf* MakeXdata(const std::vector<XdataOfApplication>& all, const wchar_t* application, const std::string& name);
// Replaces the data of the applications that the chain names; one without an item is removed. A refusal changes
// nothing.
Acad::ErrorStatus StoreXdata(const resbuf* chain, const Drawing& drawing, std::vector<XdataOfApplication>& all);
// For the journal: codes, and texts.
std::string XdataText(const resbuf* chain);

}  // namespace bench
