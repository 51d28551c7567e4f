// The elements of CreatePart and CreateConnectionStub in the order in which clients send them, one table a kind of
// command. A part type may be created by more than one form.
// Contract: rows D1.
#pragma once

#include <string>
#include <vector>

#include "CommandXml.h"

namespace bench::klimora {

using Grammar = std::vector<Field>;

// Forms in which a part of that define may be created; empty for a define that cannot be.
std::vector<const Grammar*> FormsOf(const std::string& define);
// A connection stub up to its connections, and one of these.
const Grammar& StubForm();
const Grammar& RoundStubConnection();
const Grammar& RectangularStubConnection();
bool IsStubKind(const std::string& name);

}  // namespace bench::klimora
