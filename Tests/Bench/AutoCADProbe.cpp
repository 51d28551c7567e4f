// A module for the loader's tests. The environment variable BENCH_PROBE says what it does: "refuse" answers kRetError,
// "locked" does not unlock itself, "leave" goes without taking its command away. Messages are noted in the journal.
#include <windows.h>

#include <string>

#include "BenchControl.h"
#include "accmd.h"
#include "rxdefs.h"
#include "rxregsvc.h"

namespace {

void Probe() {}

}  // namespace

extern "C" __declspec(dllexport) AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt) {
    bench::Note("probe: " + std::to_string(msg));
    if (msg != AcRx::kInitAppMsg) return AcRx::kRetOK;
    char told[16] = "";
    GetEnvironmentVariableA("BENCH_PROBE", told, sizeof told);
    if (told == std::string("refuse")) return AcRx::kRetError;
    if (told == std::string("locked")) return AcRx::kRetOK;
    acedRegCmds->addCommand(L"PROBE_CMDS", L"Probe", L"Probe", ACRX_CMD_MODAL, Probe);
    acrxRegisterService(L"PROBE");
    acrxUnlockApplication(pkt);
    return AcRx::kRetOK;
}

extern "C" __declspec(dllexport) int acrxGetApiVersion() {
    return 24;
}
