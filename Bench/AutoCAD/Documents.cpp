// The document manager and its one document.
#include <cwchar>

#include "HostObjects.h"
#include "HostSession.h"
#include "HostTransactions.h"
#include "acdocman.h"

namespace bench {
namespace {

class BenchDocument : public AcApDocument {
 public:
    const ACHAR* fileName() const override {
        HostCall call("AcApDocument::fileName", "");
        return call.fails() ? nullptr : TheSession().fileName.c_str();
    }
    AcDbDatabase* database() const override {
        HostCall call("AcApDocument::database", "");
        AcDbImpDatabase* current = TheSession().current;
        return call.fails() || current == nullptr ? nullptr : current->database();
    }
    AcTransactionManager* transactionManager() const override {
        HostCall call("AcApDocument::transactionManager", "");
        return call.fails() || TheSession().current == nullptr ? nullptr : TransactionManager();
    }
    bool isQuiescent() const override {
        HostCall call("AcApDocument::isQuiescent", "");
        return TheSession().runningCommand.empty();
    }
};

BenchDocument& Document() {
    static BenchDocument document;
    return document;
}

class BenchDocumentManager : public AcApDocManager {
 public:
    AcApDocument* curDocument() const override {
        HostCall call("AcApDocManager::curDocument", "");
        return call.fails() || TheSession().current == nullptr ? nullptr : &Document();
    }
    AcApDocument* mdiActiveDocument() const override {
        HostCall call("AcApDocManager::mdiActiveDocument", "");
        return call.fails() || TheSession().current == nullptr ? nullptr : &Document();
    }
    bool isApplicationContext() const override {
        HostCall call("AcApDocManager::isApplicationContext", "");
        return TheSession().runningCommand.empty();
    }

    Acad::ErrorStatus lockDocument(AcApDocument* pDoc, AcAp::DocLockMode mode, const ACHAR*, const ACHAR*,
                                   bool) override {
        HostCall call("AcApDocManager::lockDocument", std::to_string(static_cast<int>(mode)));
        if (call.fails()) return call.failed(Acad::eLockConflict);
        const Acad::ErrorStatus status = check(pDoc);
        if (status == Acad::eOk) Owe("document lock", Narrow(TheSession().fileName));
        return call.done(status);
    }

    Acad::ErrorStatus unlockDocument(AcApDocument* pDoc) override {
        HostCall call("AcApDocManager::unlockDocument", "");
        const Acad::ErrorStatus status = check(pDoc);
        if (status == Acad::eOk) Settle("document lock", Narrow(TheSession().fileName));
        return call.fails() ? call.failed(Acad::eLockViolation) : call.done(status);
    }

    Acad::ErrorStatus sendStringToExecute(AcApDocument* pAcTargetDocument, const ACHAR* pszExecute, bool bActivate,
                                          bool bWrapUpInactiveDoc, bool bEchoString) override {
        HostCall call("AcApDocManager::sendStringToExecute",
                      Narrow(pszExecute) + " activate=" + (bActivate ? "1" : "0") +
                          " wrapUp=" + (bWrapUpInactiveDoc ? "1" : "0") + " echo=" + (bEchoString ? "1" : "0"));
        if (call.fails()) return call.failed(Acad::eInvalidContext);
        const Acad::ErrorStatus status = check(pAcTargetDocument);
        if (status != Acad::eOk) return call.done(status);
        if (pszExecute == nullptr || *pszExecute == L'\0') return call.done(Acad::eInvalidInput);
        std::wstring text = pszExecute;
        if (std::wcschr(L" \n\r", text.back()) == nullptr) {
            Accuse("The text \"" + Narrow(text) +
                   "\" was sent to the command line without a blank or newline at its end.");
            return call.done(Acad::eInvalidInput);
        }
        TheSession().queue.push_back(text);
        return call.done(Acad::eOk);
    }

 private:
    static Acad::ErrorStatus check(const AcApDocument* document) {
        if (document == nullptr || TheSession().current == nullptr) return Acad::eNoDocument;
        return document == &Document() ? Acad::eOk : Acad::eNotFromThisDocument;
    }
};

}  // namespace
}  // namespace bench

AcApDocManager* acDocManagerPtr() {
    static bench::BenchDocumentManager manager;
    return &manager;
}
