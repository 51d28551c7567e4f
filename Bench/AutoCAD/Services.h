// The service dictionary of the system registry.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "rxdict.h"

namespace bench {

AcRxDictionary* ServiceDictionary();
// Names of the services that code of this module registered.
std::vector<std::wstring> ServicesOf(HMODULE module);
// The module that the code belongs to.
HMODULE ModuleOf(const void* code);
// Services that nobody took away stay in the balance; their objects are freed.
void ClearServices();

}  // namespace bench
