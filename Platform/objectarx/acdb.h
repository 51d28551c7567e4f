// Constants of the database layer. AcDb is a struct; the DXF codes are values of an unnamed enumeration in it, while
// AcDb::DxfCode is only a 16-bit integer type.
#pragma once

#include "acadstrc.h"
#include "adesk.h"

#define ACDB_MODEL_SPACE ACRX_T("*Model_Space")
#define ACDB_PAPER_SPACE ACRX_T("*Paper_Space")

struct AcDb {
    enum OpenMode { kForRead = 0, kForWrite = 1, kForNotify = 2 };

    typedef Adesk::Int16 DxfCode;
    enum {
        kDxfInvalid = -9999,
        kDxfXDataStart = -3,
        kDxfEnd = -1,
        kDxfStart = 0,
        kDxfText = 1,
        kDxfHandle = 5,
        kDxfXdAsciiString = 1000,
        kDxfRegAppName = 1001,
        kDxfXdControlString = 1002,
        kDxfXdLayerName = 1003,
        kDxfXdBinaryChunk = 1004,
        kDxfXdHandle = 1005,
        kDxfXdXCoord = 1010,
        kDxfXdWorldXCoord = 1011,
        kDxfXdWorldXDisp = 1012,
        kDxfXdWorldXDir = 1013,
        kDxfXdYCoord = 1020,
        kDxfXdZCoord = 1030,
        kDxfXdReal = 1040,
        kDxfXdDist = 1041,
        kDxfXdScale = 1042,
        kDxfXdInteger16 = 1070,
        kDxfXdInteger32 = 1071,
        kDxfXdMax = 1071
    };
};
