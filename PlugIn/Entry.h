// Start and stop of the application inside AutoCAD. acrxEntryPoint, the exported entry, calls these for the two
// messages that it handles; they take the module table so that tests can start a build that lists modules.
#pragma once

#include <windows.h>

#include <cstddef>

#include "rxdefs.h"

#include "ModuleLoader.h"

// Registers command and service, loads the modules, unlocks the application and declares it MDI-aware. Returns
// kRetError when a module cannot be loaded or anything throws, after removing modules, command and service again.
AcRx::AppRetCode StartApplication(ModuleRecord* modules, size_t moduleCount, void* packet);

// Frees the modules and removes command group and service, also when they are not there.
AcRx::AppRetCode StopApplication(ModuleRecord* modules, size_t moduleCount);

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet) noexcept;
