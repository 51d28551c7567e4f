// What the host says about itself, and its current database. Everything belongs to the host, texts too. The members are
// not const, workingDatabase apart, which is null when no drawing is open.
#pragma once

#include "rxobject.h"

class AcDbDatabase;
class AcDbTransactionManager;

class AcDbHostApplicationServices : public AcRxObject {
 public:
    ACRX_DECLARE_MEMBERS(AcDbHostApplicationServices)
    AcDbHostApplicationServices();
    virtual ~AcDbHostApplicationServices();

    virtual const ACHAR* program();
    virtual const ACHAR* product();
    virtual const ACHAR* releaseMajorMinorString();
    virtual int releaseMajorVersion();
    virtual int releaseMinorVersion();
    virtual AcDbTransactionManager* workingTransactionManager();
    void setWorkingDatabase(AcDbDatabase* pDatabase);
    AcDbDatabase* workingDatabase() const;

 private:
    AcDbDatabase* mpWorkingDatabase;
};

inline AcDbDatabase* AcDbHostApplicationServices::workingDatabase() const {
    return mpWorkingDatabase;
}

AcDbHostApplicationServices* acdbHostApplicationServices();
