// The localised attributes of a product record, driven by the tables of LocalisedAttributes.h. Each copies the texts
// that the device element has into the record; missing and empty ones are skipped, there is no fallback between
// languages. Always 0: a failure ends the walk, is told on the command line, and leaves what was stored before it.
#pragma once

#include "kbase.h"
#include "ticpp.h"

int SetAttributeDescriptionNN(const KB_HANDLE* database, KB_RECORD* record, const ticpp::Element& device);
int SetAttributeWebLinkNN(const KB_HANDLE* database, KB_RECORD* record, const ticpp::Element& device);
