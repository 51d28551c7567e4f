// Transactions of a database, owned by the host. startTransaction returns null on failure. endTransaction keeps, and
// abortTransaction undoes, the changes to the drawing since the newest start; both return eNoActiveTransactions when
// there is none. acdbTransactionManager is a macro.
#pragma once

#include "dbapserv.h"
#include "dbmain.h"

class ACCORE_PORT AcTransaction : public AcRxObject {
 public:
    ACRX_DECLARE_MEMBERS(AcTransaction)
};

class ACCORE_PORT AcDbTransactionManager : public AcRxObject {
 public:
    ACRX_DECLARE_MEMBERS(AcDbTransactionManager)
    virtual AcTransaction* startTransaction() = 0;
    virtual Acad::ErrorStatus endTransaction() = 0;
    virtual Acad::ErrorStatus abortTransaction() = 0;
};

inline AcDbTransactionManager* acdbTransactionManagerPtr() {
    return acdbHostApplicationServices()->workingTransactionManager();
}

#define acdbTransactionManager acdbTransactionManagerPtr()
