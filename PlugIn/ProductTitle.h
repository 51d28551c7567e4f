// The product with its version, as it stands in the configurator's title and over the user-code dialog's messages.
#pragma once

#include <string>

// The display name, a blank and the module's file version.
std::string ProductTitle();
