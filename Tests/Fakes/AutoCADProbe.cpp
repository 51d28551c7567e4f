// A module for the loader's test: it unloads without removing its command and its service.
#include <windows.h>

#include "accmd.h"
#include "rxdefs.h"
#include "rxregsvc.h"

namespace {

void Probe() {}

}  // namespace

extern "C" __declspec(dllexport) AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt) {
    if (msg != AcRx::kInitAppMsg) return AcRx::kRetOK;
    acedRegCmds->addCommand(L"PROBE_CMDS", L"Probe", L"Probe", ACRX_CMD_MODAL, Probe);
    acrxRegisterService(L"PROBE");
    acrxUnlockApplication(pkt);
    return AcRx::kRetOK;
}

extern "C" __declspec(dllexport) int acrxGetApiVersion() {
    return 24;
}
