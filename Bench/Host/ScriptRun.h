// A scripted run from end to end: reads the script, opens the stage, runs the commands with the robot at the dialogs,
// writes the output folder and says what happened. Returns the exit code.
#pragma once

#include "Options.h"

namespace bench {

inline constexpr int kAllWell = 0;
inline constexpr int kWentWrong = 1;
inline constexpr int kWrongUse = 2;

int RunScript(const HostOptions& options);

}  // namespace bench
