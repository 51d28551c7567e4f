#include "BenchControl.h"

#include <windows.h>

#include <cstdio>

namespace bench {
namespace {

constexpr UINT kCrashed = 4;
constexpr int kMaxFrames = 48;

void PrintPlace(DWORD64 address) {
    HMODULE module = nullptr;
    char name[MAX_PATH] = "unknown";
    const DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    if (GetModuleHandleExA(flags, reinterpret_cast<LPCSTR>(address), &module))
        GetModuleFileNameA(module, name, sizeof name);
    const char* file = name;
    for (const char* c = name; *c; ++c)
        if (*c == '\\') file = c + 1;
    const DWORD64 offset = module ? address - reinterpret_cast<DWORD64>(module) : 0;
    std::printf("  %016llx  %s+%llx\n", address, file, offset);
}

LONG WINAPI Report(EXCEPTION_POINTERS* exception) {
    std::fflush(nullptr);  // keep earlier output
    std::string step;
    for (const std::string& line : CallLog())
        if (line.compare(0, 3, "-- ") == 0) step = line.substr(2);
    std::printf("\nbench: crashed%s with exception %08lx at\n", step.c_str(),
                exception->ExceptionRecord->ExceptionCode);
    CONTEXT context = *exception->ContextRecord;
    for (int depth = 0; depth < kMaxFrames && (context.Rip || depth == 0); ++depth) {
        PrintPlace(context.Rip);
        DWORD64 base = 0;
        PRUNTIME_FUNCTION function = RtlLookupFunctionEntry(context.Rip, &base, nullptr);
        if (!function) {
            // A leaf function, or a call to an invalid address, has pushed only its return address.
            context.Rip = *reinterpret_cast<DWORD64*>(context.Rsp);
            context.Rsp += sizeof(DWORD64);
            continue;
        }
        void* handler = nullptr;
        DWORD64 frame = 0;
        RtlVirtualUnwind(UNW_FLAG_NHANDLER, base, context.Rip, function, &context, &handler, &frame, nullptr);
    }
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), kCrashed);
    return EXCEPTION_EXECUTE_HANDLER;
}

}  // namespace

void ReportCrashes() {
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    SetUnhandledExceptionFilter(Report);
}

}  // namespace bench
