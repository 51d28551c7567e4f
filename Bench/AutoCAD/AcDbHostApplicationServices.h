// What AutoCAD says about itself, and its current database.
#pragma once

#include "dbapserv.h"

namespace bench {

void SetWorkingDatabase(AcDbDatabase* database);  // null: no drawing is open

}  // namespace bench
