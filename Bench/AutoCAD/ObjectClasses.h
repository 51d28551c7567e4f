// Which class stands for which record of the drawing.
#pragma once

#include "Drawing.h"
#include "dbmain.h"

namespace bench {

// A new object of the record's class, in no drawing yet.
AcDbObject* MakeObject(const Record& record);

}  // namespace bench
