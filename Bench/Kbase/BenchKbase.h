// Bench interface of the record database fake (Kbase640.dll).
#pragma once

#include "KbaseFile.h"
#include "kbase.h"

namespace bench {

// Returns the record that kbsaverec stored last; it has no class if there was none.
KBASE_API KbaseRecord LastSavedRecord();

}  // namespace bench
