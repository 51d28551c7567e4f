// The command ManageProductData: adds a product of a product file to the project's list of its class, or replaces the
// product that has the same user code there. Refuses (Refusal) what it cannot add and leaves the project as it was.
// Contract: rows P1 and P3 to P7.
#pragma once

#include <string>

#include "Server.h"

namespace bench::klimora {

void ManageProductData(Server& server, const std::string& command);

}  // namespace bench::klimora
