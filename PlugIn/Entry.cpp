#include "Entry.h"

#include "accmd.h"
#include "rxdict.h"
#include "rxdlinkr.h"
#include "rxregsvc.h"
#include "rxresource.h"
#include "rxsrvice.h"

#include "KL_Conn_SorvSilencer.h"
#include "Lib/ModuleIdentity.h"

namespace {

void RegisterCommandAndService() {
    if (AcEdCommandStack* commands = acedRegCmds) {
        const AcRxResourceInstance resources(static_cast<void*>(ModuleHandle()));
        commands->addCommand(kCommandGroup, kSilencerCommandWide, kSilencerCommandWide, ACRX_CMD_MODAL, SorvSilencer,
                             nullptr, -1, resources);
    }
    acrxRegisterService(kServiceName);
}

void RemoveCommandAndService() {
    if (AcEdCommandStack* commands = acedRegCmds) commands->removeGroup(kCommandGroup);
    if (AcRxDictionary* services = acrxServiceDictionary) delete services->remove(kServiceName);
}

}  // namespace

AcRx::AppRetCode StartApplication(ModuleRecord* modules, size_t moduleCount, void* packet) {
    try {
        RegisterCommandAndService();
        if (LoadModules(modules, moduleCount) == 0) {
            acrxUnlockApplication(packet);
            if (AcRxDynamicLinker* linker = acrxDynamicLinker) linker->registerAppMDIAware(packet);
            return AcRx::kRetOK;
        }
    } catch (...) {
        FreeModules(modules, moduleCount);
    }
    // AutoCAD unloads a module that refuses to start, and a command must not outlive its code.
    RemoveCommandAndService();
    return AcRx::kRetError;
}

AcRx::AppRetCode StopApplication(ModuleRecord* modules, size_t moduleCount) {
    FreeModules(modules, moduleCount);
    RemoveCommandAndService();
    return AcRx::kRetOK;
}

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet) noexcept {
    try {
        switch (message) {
            case AcRx::kInitAppMsg:
                return StartApplication(g_modules, kWalkedModuleCount, packet);
            case AcRx::kUnloadAppMsg:
                return StopApplication(g_modules, kWalkedModuleCount);
            default:
                return AcRx::kRetOK;
        }
    } catch (...) {
        return AcRx::kRetError;
    }
}
