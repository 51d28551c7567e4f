// The configurator's window: the products that fit the duct, one per row. Export, a double click or Enter publishes the
// selected product and closes the window; Cancel, Escape or the close box closes it without publishing.
#pragma once

#include <string>
#include <vector>

#include "ManufacturerSite.h"

// Returns the id of the exported product; empty when the window was cancelled.
std::string AskForProduct(const std::string& address, const std::string& title, const std::vector<Product>& products);
