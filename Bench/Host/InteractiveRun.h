// A run by the person at the console: types commands and answers to prompts, sees the configurator's window, the
// dialogs and the message boxes, and reads after every command what it did. Returns the exit code.
#pragma once

#include "Options.h"

namespace bench {

int RunInteractively(const HostOptions& options);

}  // namespace bench
