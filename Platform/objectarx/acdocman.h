// Documents and their manager, all owned by the host. Without an open drawing curDocument and mdiActiveDocument are
// null. sendStringToExecute ends its text with a blank or a newline; from a running command with bActivate the document
// is made the active one. acDocManager is a macro, curDoc() a function of the host that no module may define again.
#pragma once

#include "AcApDocLockMode.h"
#include "acadstrc.h"
#include "rxobject.h"

class AcDbDatabase;
class AcTransactionManager;

class AcApDocument : public AcRxObject {
 public:
    ACRX_DECLARE_MEMBERS(AcApDocument)
    virtual const ACHAR* fileName() const = 0;
    virtual AcDbDatabase* database() const = 0;
    virtual AcTransactionManager* transactionManager() const = 0;
    virtual bool isQuiescent() const = 0;
};

class AcApDocManager : public AcRxObject {
 public:
    ACRX_DECLARE_MEMBERS(AcApDocManager)
    virtual AcApDocument* curDocument() const = 0;
    virtual AcApDocument* mdiActiveDocument() const = 0;
    virtual bool isApplicationContext() const = 0;
    virtual Acad::ErrorStatus lockDocument(AcApDocument* pDoc, AcAp::DocLockMode mode = AcAp::kWrite,
                                           const ACHAR* pGlobalCmdName = NULL, const ACHAR* pLocalCmdName = NULL,
                                           bool prompt = true) = 0;
    virtual Acad::ErrorStatus unlockDocument(AcApDocument* pDoc) = 0;
    virtual Acad::ErrorStatus sendStringToExecute(AcApDocument* pAcTargetDocument, const ACHAR* pszExecute,
                                                  bool bActivate = true, bool bWrapUpInactiveDoc = false,
                                                  bool bEchoString = true) = 0;
};

AcApDocManager* acDocManagerPtr();

#define acDocManager acDocManagerPtr()

inline AcApDocument* curDoc() {
    return ::acDocManagerPtr()->curDocument();
}
