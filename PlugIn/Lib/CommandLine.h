// Output to AutoCAD's command line. Every message of the module to the command line goes through here.
#pragma once

#include "PrintfFormat.h"

// Formats, cuts to 8191 characters, widens from the ANSI code page and prints, without heap memory. Returns
// acutPrintf's result. By convention a message begins with "\n%s: " and kDisplayName, and ends with "\n".
PRINTF_FORMAT(format, 1, 2) int PrintCommandLine(const char* format, ...);
