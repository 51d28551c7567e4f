// The transaction manager of a document; null where no document is open. actrTransactionManager is a macro.
#pragma once

#include "acdocman.h"
#include "dbtrans.h"

class AcTransactionManager : public AcDbTransactionManager {
 public:
    ACRX_DECLARE_MEMBERS(AcTransactionManager)
    virtual int enableGraphicsFlush(bool doEnable) = 0;
    virtual void flushGraphics() = 0;
};

inline AcTransactionManager* acTransactionManagerPtr() {
    AcApDocument* document = acDocManagerPtr()->curDocument();
    return document == nullptr ? nullptr : document->transactionManager();
}

#define actrTransactionManager acTransactionManagerPtr()
