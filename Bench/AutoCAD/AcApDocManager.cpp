// The document manager and its only document.
#include <cwchar>

#include "AcRxClass.h"
#include "Application.h"
#include "ArxCall.h"
#include "ProcessState.h"
#include "Texts.h"

ACRX_DEFINE_MEMBERS(AcApDocument, AcRxObject)
ACRX_DEFINE_MEMBERS(AcApDocManager, AcRxObject)

namespace bench {
namespace {

class Document : public AcApDocument {
 public:
    AcTransactionManager* transactionManager() const override {
        ArxCall call("AcApDocument::transactionManager", "");
        return call.fails() || TheProcess().current == nullptr ? nullptr : TheTransactionManager();
    }
};

Document& TheDocument() {
    static Document document;
    return document;
}

class DocumentManager : public AcApDocManager {
 public:
    AcApDocument* curDocument() const override {
        ArxCall call("AcApDocManager::curDocument", "");
        return call.fails() || TheProcess().current == nullptr ? nullptr : &TheDocument();
    }

    Acad::ErrorStatus sendStringToExecute(AcApDocument* pAcTargetDocument, const ACHAR* pszExecute, bool bActivate,
                                          bool bWrapUpInactiveDoc, bool bEchoString) override {
        ArxCall call("AcApDocManager::sendStringToExecute",
                     LogText(pszExecute) + " activate=" + (bActivate ? "1" : "0") +
                         " wrapUp=" + (bWrapUpInactiveDoc ? "1" : "0") + " echo=" + (bEchoString ? "1" : "0"));
        if (call.fails()) return call.failed(Acad::eInvalidContext);
        if (pAcTargetDocument == nullptr || TheProcess().current == nullptr) return call.done(Acad::eNoDocument);
        if (pAcTargetDocument != &TheDocument()) return call.done(Acad::eNotFromThisDocument);
        if (pszExecute == nullptr || *pszExecute == L'\0') return call.done(Acad::eInvalidInput);
        const std::wstring text = pszExecute;
        if (std::wcschr(L" \n\r", text.back()) == nullptr) {
            ReportViolation("The string \"" + Ansi(text) +
                            "\" was sent to the command line without a final blank or newline.");
            return call.done(Acad::eInvalidInput);
        }
        TheProcess().queue.push_back(text);
        return call.done(Acad::eOk);
    }
};

}  // namespace
}  // namespace bench

AcApDocManager* acDocManagerPtr() {
    static bench::DocumentManager manager;
    return &manager;
}
