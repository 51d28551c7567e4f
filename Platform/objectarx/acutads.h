// Command-line output and result buffers. acutNewRb and acutBuildList return a chain that the caller releases with
// acutRelRb, which frees every node and its string. The arguments of a list end with RTNONE or 0; strings are copied.
#pragma once

#include "adesk.h"
#include "adsdef.h"

// The format is wide; %s is a wide string. Returns RTNORM on success.
ACCORE_PORT int acutPrintf(const ACHAR* format, ...);

// Returns null when memory runs out or the value type is unknown.
ACCORE_PORT struct resbuf* acutBuildList(int rtype, ...);
ACCORE_PORT struct resbuf* acutNewRb(int v);
ACCORE_PORT int acutRelRb(struct resbuf* rb);
