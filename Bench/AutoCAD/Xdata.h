// Extended data: checks chains to be stored and builds chains for the caller.
#pragma once

#include <string>
#include <vector>

#include "Drawing.h"
#include "acadstrc.h"
#include "adsdef.h"

namespace bench {

// Builds a chain of the application's data, or of all data when `application` is null. Returns null when there is none.
resbuf* MakeXdata(const std::vector<XdataOfApplication>& all, const wchar_t* application, const std::string& name);
// Replaces the data of the applications that the chain names and removes that of an application without items. On an
// error nothing changes.
Acad::ErrorStatus StoreXdata(const resbuf* chain, const Drawing& drawing, std::vector<XdataOfApplication>& all);
// Returns the group codes and strings for the call log.
std::string XdataText(const resbuf* chain);

}  // namespace bench
