// The system registry's parts, for one another.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "rxobject.h"

namespace bench {

AcRxObject* CommandStack();
AcRxObject* DynamicLinker();
// Names of the services that code of this module registered.
std::vector<std::wstring> ServicesOf(HMODULE module);
HMODULE ModuleOf(const void* code);

}  // namespace bench
