// Documents and their manager, all owned by the host. Without an open drawing curDocument is null. sendStringToExecute
// ends its text with a blank or a newline; from a running command with bActivate the document is made the active one.
// acDocManager is a macro, curDoc() a function of the host that no module may define again.
#pragma once

#include "acadstrc.h"
#include "rxobject.h"

class AcTransactionManager;

class ACCORE_PORT AcApDocument : public AcRxObject {
 public:
    ACRX_DECLARE_MEMBERS(AcApDocument)
    virtual AcTransactionManager* transactionManager() const = 0;
};

class ACCORE_PORT AcApDocManager : public AcRxObject {
 public:
    ACRX_DECLARE_MEMBERS(AcApDocManager)
    virtual AcApDocument* curDocument() const = 0;
    virtual Acad::ErrorStatus sendStringToExecute(AcApDocument* pAcTargetDocument, const ACHAR* pszExecute,
                                                  bool bActivate = true, bool bWrapUpInactiveDoc = false,
                                                  bool bEchoString = true) = 0;
};

ACCORE_PORT AcApDocManager* acDocManagerPtr();

#define acDocManager acDocManagerPtr()

inline AcApDocument* curDoc() {
    return ::acDocManagerPtr()->curDocument();
}
