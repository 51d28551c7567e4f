// A module for the loader's tests. The environment variable BENCH_PROBE says what it does: "refuse" answers kRetError,
// "locked" does not unlock itself, "leave" goes without taking its command away. Messages are noted in the journal.
#include <windows.h>

#include <string>

#include "BenchControl.h"
#include "accmd.h"
#include "rxdefs.h"
#include "rxdlinkr.h"
#include "rxregsvc.h"
#include "rxsrvice.h"

namespace {

bool Told(const char* what) {
    char told[16] = "";
    GetEnvironmentVariableA("BENCH_PROBE", told, sizeof told);
    return std::string(told) == what;
}

void Probe() {
    bench::Note("probe: command");
}

}  // namespace

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt) {
    bench::Note("probe: message " + std::to_string(msg));
    if (msg == AcRx::kInitAppMsg) {
        if (Told("refuse")) return AcRx::kRetError;
        acedRegCmds->addCommand(L"PROBE_CMDS", L"Probe", L"Probe", ACRX_CMD_MODAL, Probe);
        acrxRegisterService(L"PROBE");
        if (!Told("locked")) acrxUnlockApplication(pkt);
        acrxDynamicLinker->registerAppMDIAware(pkt);
    }
    if (msg == AcRx::kUnloadAppMsg && !Told("leave")) {
        acedRegCmds->removeGroup(L"PROBE_CMDS");
        delete acrxServiceDictionary->remove(L"PROBE");
    }
    return AcRx::kRetOK;
}
