// On a crash of the process: one line with the exception, a stack of addresses with module names, and exit code 4.
// Every program of the bench and of the tests asks for it first.
#pragma once

#include "BenchControl.h"

namespace bench {

BENCH_CONTROL_API void ReportCrashes();

}  // namespace bench
