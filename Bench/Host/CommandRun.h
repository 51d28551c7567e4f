// Runs one command on the stage and collects what it did.
#pragma once

#include <functional>
#include <string>

#include "BenchStage.h"
#include "RunReport.h"

namespace bench {

// `configurator` steers the configurator window; `recordFile` is where it writes what it was asked.
CommandReport RunAndReport(const BenchStage& stage, const std::string& command, const std::string& configurator,
                           const std::string& recordFile);

}  // namespace bench
