// Which attributes clients may write: the table of those that may be added to a part or the drawing, and the values
// that some of them take. Everything else may only be overwritten where it is, and a part's type never.
// Contract: rows A8, A15 and A16.
#pragma once

#include <string>

#include "AttributePath.h"

namespace bench::klimora {

bool MayBeAdded(const AttributePath& path);
// Refuses a path that is read-only and a value that its attribute cannot take.
void CheckSettable(const AttributePath& path, const std::string& value);
// The value at this path is the number of a binary variable whose contents the server takes over.
bool TakesBinaryVariable(const AttributePath& path);

}  // namespace bench::klimora
