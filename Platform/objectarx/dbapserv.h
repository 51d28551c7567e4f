// The host's description of itself, and its current database. The host owns everything, also strings. Only
// workingDatabase is const; it returns null when no drawing is open.
#pragma once

#include "rxobject.h"

class AcDbDatabase;
class AcDbTransactionManager;

class ACCORE_PORT AcDbHostApplicationServices : public AcRxObject {
 public:
    ACRX_DECLARE_MEMBERS(AcDbHostApplicationServices)
    virtual const ACHAR* product();
    virtual int releaseMajorVersion();
    virtual int releaseMinorVersion();
    virtual AcDbTransactionManager* workingTransactionManager();
    AcDbDatabase* workingDatabase() const;

 protected:
    AcDbHostApplicationServices();
    virtual ~AcDbHostApplicationServices();
    AcDbDatabase* mpWorkingDatabase;
};

inline AcDbDatabase* AcDbHostApplicationServices::workingDatabase() const {
    return mpWorkingDatabase;
}

ACCORE_PORT AcDbHostApplicationServices* acdbHostApplicationServices();
