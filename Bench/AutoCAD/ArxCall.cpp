#include "ArxCall.h"

#include <windows.h>

#include "Session.h"

namespace bench {

ArxCall::ArxCall(const char* name, const std::string& arguments) : Call(name, arguments) {
    const DWORD mainThread = TheSession().mainThread;
    if (mainThread != 0 && mainThread != GetCurrentThreadId())
        ReportViolation(std::string(name) + " was called on a thread that is not AutoCAD's own.");
}

}  // namespace bench
