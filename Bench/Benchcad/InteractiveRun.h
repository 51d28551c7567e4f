// An interactive run: the user types commands and answers to prompts, sees the configurator's window, dialogs and
// message boxes, and reads a report after every command. Returns the exit code.
#pragma once

#include "Options.h"

namespace bench {

int RunInteractively(const Options& options);

}  // namespace bench
