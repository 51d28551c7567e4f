// The command stack of the system registry.
#pragma once

#include "accmd.h"

namespace bench {

AcEdCommandStack* TheCommandStack();

}  // namespace bench
