// The configurator's window: the products that fit the duct, one a row with its figures. Export, a double click or
// Enter publishes the selected product and closes; Cancel, Escape or the close box closes without.
#pragma once

#include <string>
#include <vector>

#include "CommandLine.h"
#include "MakerSite.h"

// Id of the exported product, empty when the window was cancelled.
std::string AskForProduct(const CommandLine& line, const std::vector<Product>& products);
