// Attributes of the product record that a device has in several languages or countries: its descriptions, and the links
// to the product's page.
#pragma once

#include "kbase.h"
#include "ticpp.h"

// Each stores the device's children of its kind that have a text, in the order of the attributes' numbers. A text that
// is too large for the record database throws AttributeTooLarge; any other failure ends the walk and is reported, and
// what was stored stays. Returns 0.
int SetAttributeDescriptionNN(const KB_HANDLE* database, KB_RECORD* record, const ticpp::Element& device);
int SetAttributeWebLinkNN(const KB_HANDLE* database, KB_RECORD* record, const ticpp::Element& device);
