// Transactions of a database. Managers and transactions belong to the host. startTransaction is null on failure;
// endTransaction keeps and abortTransaction takes back what happened to the drawing since the newest start, and both
// say eNoActiveTransactions when there is none. acdbTransactionManager is a macro.
#pragma once

#include "dbapserv.h"
#include "dbmain.h"

class AcTransaction : public AcRxObject {
 public:
    ACRX_DECLARE_MEMBERS(AcTransaction)
    virtual Acad::ErrorStatus getObject(AcDbObject*& obj, AcDbObjectId objectId, AcDb::OpenMode mode = AcDb::kForRead,
                                        bool openErasedObject = false) = 0;
};

class AcDbTransactionManager : public AcRxObject {
 public:
    ACRX_DECLARE_MEMBERS(AcDbTransactionManager)
    virtual AcTransaction* startTransaction() = 0;
    virtual Acad::ErrorStatus endTransaction() = 0;
    virtual Acad::ErrorStatus abortTransaction() = 0;
    virtual int numActiveTransactions() = 0;
    virtual AcTransaction* topTransaction() = 0;
    virtual Acad::ErrorStatus addNewlyCreatedDBRObject(AcDbObject* obj, bool add = true) = 0;
    virtual Acad::ErrorStatus getObject(AcDbObject*& obj, AcDbObjectId objectId, AcDb::OpenMode mode = AcDb::kForRead,
                                        bool openErasedObject = false) = 0;
};

inline AcDbTransactionManager* acdbTransactionManagerPtr() {
    return acdbHostApplicationServices()->workingTransactionManager();
}

#define acdbTransactionManager acdbTransactionManagerPtr()
