// Status codes of the database and document layers. eOk is the only success. Acad is a struct, so its codes are written
// Acad::eOk and no using directive can import them.
#pragma once

struct Acad {
    enum ErrorStatus {
        eOk = 0,
        eInvalidInput = 3,
        eOutOfMemory = 6,
        eNullHandle = 11,
        eUnknownHandle = 13,
        eNullObjectId = 16,
        eNullEntityPointer = 20,
        eKeyNotFound = 22,
        eDuplicateKey = 23,
        eAlreadyInDb = 26,
        eInvalidAdsName = 31,
        eNotOpenForRead = 44,
        eNotOpenForWrite = 45,
        eNotThatKindOfClass = 46,
        eInvalidDxfCode = 50,
        eInvalidResBuf = 51,
        eBadDxfSequence = 52,
        eWasErased = 80,
        ePermanentlyErased = 81,
        eWasOpenForRead = 82,
        eWasOpenForWrite = 83,
        eWasNotifying = 85,
        eOnLockedLayer = 87,
        eNotAnEntity = 93,
        eNoDatabase = 124,
        eXdataSizeExceeded = 125,
        eRegappIdNotFound = 126,
        eCannotScaleNonUniformly = 136,
        eNotInDatabase = 137,
        eNoActiveTransactions = 250,
        eLockViolation = 320,
        eNoDocument = 330,
        eNotFromThisDocument = 331,
        eInvalidContext = 335,
    };
};
