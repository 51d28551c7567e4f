// On a crash: one line with the exception, a stack of addresses with module names, and exit code 4.
#pragma once

namespace bench {

void ReportCrashes();

}  // namespace bench
