// Runs a script's commands, with the robot operating the dialogs. Returns the exit code.
#pragma once

#include "Options.h"

namespace bench {

int RunScript(const Options& options);

}  // namespace bench
