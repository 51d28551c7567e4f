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

// Loads and unloads ObjectARX modules. The application id that a module gets is the address of its record in the
// session.
AcRxDynamicLinker* TheDynamicLinker();

AcRxDictionary* ServiceDictionary();
// Names of the services that code of this module registered.
std::vector<std::wstring> ServicesOf(HMODULE module);
// The module that the code belongs to.
HMODULE ModuleOf(const void* code);
// Services that nobody took away stay in the balance; their objects are freed.
void ClearServices();

}  // namespace bench
