// Start and stop of the application inside AutoCAD. acrxEntryPoint, the exported entry, calls these for the two
// messages that it answers; they take the module table so that the start of a build that lists modules can be tried.
#pragma once

#include <cstddef>

#include "rxdefs.h"

#include "ModuleLoader.h"

// Registers command and service, loads the modules, unlocks the application and declares it MDI-aware. kRetError, with
// modules, command and service taken back, when a module could not be loaded or anything threw.
AcRx::AppRetCode StartApplication(ModuleRecord* modules, size_t moduleCount, void* packet);

// Frees the modules and takes command group and service back; harmless when they are not there.
AcRx::AppRetCode StopApplication(ModuleRecord* modules, size_t moduleCount);

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet) noexcept;
