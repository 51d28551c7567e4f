// Constants of the database layer. AcDb is a struct. The DXF codes are values of an unnamed enumeration in it;
// AcDb::DxfCode is only a 16-bit integer type.
#pragma once

#include "acadstrc.h"
#include "adesk.h"

#define ACDB_MODEL_SPACE ACRX_T("*Model_Space")
#define ACDB_PAPER_SPACE ACRX_T("*Paper_Space")

struct AcDb {
    enum OpenMode { kForRead = 0, kForWrite = 1 };

    typedef Adesk::Int16 DxfCode;
    enum { kDxfXdAsciiString = 1000, kDxfRegAppName = 1001, kDxfXdInteger16 = 1070 };
};
