// Required library; nothing in this module calls it.
// The XML command that creates a connection stub. The stub's kind and values decide which elements it has.
#pragma once

#include <string>

#include "Util/PartArguments.h"

std::string ConnectionStubCommand(const ConnectionStub& stub);
