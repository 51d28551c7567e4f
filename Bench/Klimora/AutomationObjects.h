// The COM objects of the server, one for each ProgID, registered in the registry and the running object table. Each
// returns one pointer per interface, so references are counted by interface; KlimoraServer selects the available
// interfaces. The objects live as long as the process, so that a late or repeated release is reported instead of
// crashing. A failed registration is reported as a violation.
// Contract: rows C1 to C10 and K1 to K6.
#pragma once

#include "BenchKlimora.h"

namespace bench::klimora {

// Registers ProgIDs and running objects as the settings say; WithdrawObjects removes them.
void PublishObjects(const KlimoraServer& server);
void WithdrawObjects();

}  // namespace bench::klimora
