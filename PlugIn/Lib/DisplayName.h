// The name under which the module speaks to the user: caption of every message box and head of every line on the
// command line.
#pragma once

inline constexpr char kDisplayName[] = "Sorvik Klimora Cloud Plugin";
