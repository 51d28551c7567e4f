// Command-line output and result buffers. acutNewRb and acutBuildList give a chain that the caller releases with
// acutRelRb, which frees every node and the strings in them. A list ends with RTNONE or 0; its strings are copied.
#pragma once

#include "adesk.h"
#include "adsdef.h"

// Wide format; %s takes a wide text. RTNORM when printed.
ACCORE_PORT int acutPrintf(const ACHAR* format, ...);

// Null when there is no memory, or for a value type that does not exist.
ACCORE_PORT struct resbuf* acutBuildList(int rtype, ...);
ACCORE_PORT struct resbuf* acutNewRb(int v);
ACCORE_PORT int acutRelRb(struct resbuf* rb);
