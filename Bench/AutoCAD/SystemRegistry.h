// The objects of AutoCAD's system registry.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "accmd.h"
#include "rxdict.h"
#include "rxdlinkr.h"

namespace bench {

AcEdCommandStack* TheCommandStack();

// Loads and unloads ObjectARX modules. A module's application id is the address of its Module record.
AcRxDynamicLinker* TheDynamicLinker();

AcRxDictionary* ServiceDictionary();
// Returns the names of the services registered by this module's code.
std::vector<std::wstring> ServicesOf(HMODULE module);
// Returns the module that contains the code.
HMODULE ModuleOf(const void* code);
// Frees the remaining services; they stay outstanding.
void ClearServices();

}  // namespace bench
