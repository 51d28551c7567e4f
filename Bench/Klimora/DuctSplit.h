// Puts a silencer into a duct: the duct keeps its handle and its start, the silencer comes into its middle, and a new
// duct of the same kind takes the rest. Neighbours are connected to the part that now touches them.
// Contract: rows X3 and X4.
#pragma once

#include <string>

#include "ProjectTree.h"

namespace bench::klimora {

struct InsertedSilencer {
    std::string silencer;  // handles
    std::string secondDuct;
    double fromStart = 0;  // mm from the start of the duct to the silencer
};

// Length of the product's silencer in mm: what the product says, else 900.
double SilencerLength(const TiXmlElement* product);
// Refused, with nothing changed, when the part is no duct or the silencer does not fit into it.
InsertedSilencer InsertIntoDuct(const ProjectTree& project, TiXmlElement* duct, const TiXmlElement* product);

}  // namespace bench::klimora
