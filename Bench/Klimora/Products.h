// The command ManageProductData: adds a product from a product file to the project's list of its class. A product with
// the same user code is replaced, and its silencers in the drawing are assigned to the new product. The file is a
// record database, read through Kbase640.dll; its dictionary has the same name with the extension .ddk. Throws Refusal
// for a product that it cannot add and leaves the project unchanged. Contract: rows P1 to P6.
#pragma once

#include <string>

#include "Server.h"

namespace bench::klimora {

inline constexpr char kSilencerClass[] = "dSilencerType";

std::string ManageProductData(Server& server, const std::string& command);

}  // namespace bench::klimora
