// Documents and their manager, owned by the host. curDocument returns null when no drawing is open. The text for
// sendStringToExecute ends with a blank or a newline; with bActivate a running command activates the document.
// acDocManager is a macro. curDoc() is a function of the host; modules must not redefine it.
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
