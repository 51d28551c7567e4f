// The command ManageProductData: adds a product of a product file to the project's list of its class, or replaces the
// product that has the same user code there, whose drawn silencers become the new product's. The file is a record
// database, read through Kbase640.dll; its dictionary lies beside it under the same name with the ending .ddk. Refuses
// (Refusal) what it cannot add and leaves the project as it was. Contract: rows P1 to P6.
#pragma once

#include <string>

#include "Server.h"

namespace bench::klimora {

inline constexpr char kSilencerClass[] = "dSilencerType";

std::string ManageProductData(Server& server, const std::string& command);

}  // namespace bench::klimora
