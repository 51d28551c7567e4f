// The bench's side of the record database stand-in (Kbase640.dll).
#pragma once

#include "KbaseFile.h"
#include "kbase.h"

namespace bench {

// The record that kbsaverec stored last, without a class when there was none.
KBASE_API KbaseRecord LastSavedRecord();

}  // namespace bench
