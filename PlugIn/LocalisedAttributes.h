// Attributes of the product record that a device has in several languages or countries: its descriptions, and the links
// to the product's page.
#pragma once

#include "kbase.h"
#include "ticpp.h"

// Each stores the device's children of its kind that have a text, in the order of the attributes' numbers. A failure
// ends the walk and is reported; what was stored stays. Always 0.
int SetAttributeDescriptionNN(const KB_HANDLE* database, KB_RECORD* record, const ticpp::Element& device);
int SetAttributeWebLinkNN(const KB_HANDLE* database, KB_RECORD* record, const ticpp::Element& device);
