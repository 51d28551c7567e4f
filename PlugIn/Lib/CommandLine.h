// Output to AutoCAD's command line. Every message of the module to the command line goes through here.
#pragma once

#include "PrintfFormat.h"

// Formats (cut to 8191 characters), widens from the ANSI code page and prints, without memory of the heap; returns
// acutPrintf's result. Texts begin with "\n%s: " and kDisplayName and end with "\n" by custom.
PRINTF_FORMAT(format, 1, 2) int PrintCommandLine(const char* format, ...);
