// Prints the exception and a stack of addresses with module names when the process crashes, and exits with code 4.
// Every program of the bench and the tests calls ReportCrashes first.
#pragma once

#include "BenchControl.h"

namespace bench {

BENCH_CONTROL_API void ReportCrashes();

}  // namespace bench
