// Attributes of the product record in several languages or for several countries: descriptions, and links to the
// product's page.
#pragma once

#include "kbase.h"
#include "ticpp.h"

// Each stores the device's children of its kind that have a text, in the order of the attributes' numbers. Throws
// AttributeTooLarge for a text that is too large for the record database. Any other exception ends the loop and is
// reported; what was stored stays. Returns 0.
int SetAttributeDescriptionNN(const KB_HANDLE* database, KB_RECORD* record, const ticpp::Element& device);
int SetAttributeWebLinkNN(const KB_HANDLE* database, KB_RECORD* record, const ticpp::Element& device);
