// The product's name with its version: the configurator's title and the caption of the user-code dialog's messages.
#pragma once

#include <string>

// Returns the display name, a blank and the module's file version.
std::string ProductTitle();
