// The result that the maker's server publishes for a choice: the addresses of the database files, and a device element
// for each product with everything that makes a product record. Texts are UTF-8.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "Catalogue.h"

namespace bench {

// `server` is scheme and host without a trailing slash. `rootTexts` are further elements of the root, placed first.
std::string ResultDocument(const Catalogue& catalogue, const std::vector<std::string>& products,
                           const std::string& server,
                           const std::vector<std::pair<std::string, std::string>>& rootTexts);

}  // namespace bench
