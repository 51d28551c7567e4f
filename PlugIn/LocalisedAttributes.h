// Which child element of a device carries which localised attribute of the product record: descriptions by language and
// links to the product's page by country. Numbers and names are the dictionary's own, gaps and odd spellings included;
// the order of the tables is the order in which attributes are stored.
#pragma once

#include <cstdint>

struct LocalisedAttribute {
    int32_t number;
    char element[32];  // NUL-terminated
};

extern const LocalisedAttribute kDescriptionAttributes[31];
extern const LocalisedAttribute kWebLinkAttributes[34];
