// Selection sets that are handed out; the balance owes each until acedSSFree.
#pragma once

#include <vector>

#include "HostDrawing.h"
#include "adsdef.h"

namespace bench {

// False when 128 sets are open, as many as AutoCAD has.
bool HandOutSelection(const std::vector<Handle>& handles, ads_name set);
// Entity name for a handle of the current drawing.
void EntityName(Handle handle, ads_name name);

}  // namespace bench
