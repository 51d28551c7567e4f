// The COM objects of the server, one for each ProgID, as a client meets them in the registry and in the running object
// table. Each hands out one pointer per interface, so that references are counted by interface; which interfaces it
// answers is a matter of KlimoraServer. The objects live as long as the process, so that a client that releases too
// late or too often is told so instead of crashing. What cannot be registered is an accusation.
// Contract: rows C1 to C10 and K1 to K6.
#pragma once

#include "BenchKlimora.h"

namespace bench::klimora {

// ProgIDs and running objects, as far as the server has them; and all of them away again.
void PublishObjects(const KlimoraServer& server);
void WithdrawObjects();

}  // namespace bench::klimora
