// A run by a script: its commands with the robot at the dialogs. Returns the exit code.
#pragma once

#include "Options.h"

namespace bench {

int RunScript(const HostOptions& options);

}  // namespace bench
