#include "ArxCall.h"

#include <windows.h>

#include "ProcessState.h"

namespace bench {

ArxCall::ArxCall(const char* name, const std::string& arguments) : Call(name, arguments) {
    const DWORD mainThread = TheProcess().mainThread;
    if (mainThread != 0 && mainThread != GetCurrentThreadId())
        ReportViolation(std::string(name) + " was called on a thread that is not AutoCAD's own.");
}

}  // namespace bench
