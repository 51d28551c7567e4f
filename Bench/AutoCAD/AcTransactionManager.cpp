// Transactions. Each keeps a copy of the drawing from its start; abort restores it, including changes made outside the
// transaction. endTransaction with an injected fault aborts the transaction.
#include "Application.h"

#include <memory>
#include <vector>

#include "AcRxClass.h"
#include "ArxCall.h"
#include "ProcessState.h"
#include "Texts.h"

ACRX_DEFINE_MEMBERS(AcTransaction, AcRxObject)
ACRX_DEFINE_MEMBERS(AcDbTransactionManager, AcRxObject)
ACRX_DEFINE_MEMBERS(AcTransactionManager, AcDbTransactionManager)

namespace bench {
namespace {

class Transaction : public AcTransaction {
 public:
    explicit Transaction(const Drawing& drawing) : start(drawing) {}
    const Drawing start;
};

class TransactionManager : public AcTransactionManager {
 public:
    AcTransaction* startTransaction() override {
        ArxCall call("AcTransactionManager::startTransaction", "");
        const Drawing* drawing = CurrentDrawing();
        if (call.fails() || drawing == nullptr) return nullptr;
        active.push_back(std::make_unique<Transaction>(*drawing));
        TrackAcquire("transaction", "of " + Ansi(TheProcess().fileName));
        return active.back().get();
    }

    Acad::ErrorStatus endTransaction() override {
        ArxCall call("AcTransactionManager::endTransaction", "");
        return finish(call, "endTransaction", call.fails());
    }

    Acad::ErrorStatus abortTransaction() override {
        ArxCall call("AcTransactionManager::abortTransaction", "");
        return finish(call, "abortTransaction", true);
    }

    std::vector<std::unique_ptr<Transaction>> active;

 private:
    Acad::ErrorStatus finish(ArxCall& call, const char* what, bool abort) {
        if (active.empty()) {
            ReportViolation(std::string(what) + " was called although no transaction is active.");
            return call.done(Acad::eNoActiveTransactions);
        }
        if (abort) CurrentDrawing()->restore(active.back()->start);
        active.pop_back();
        TrackRelease("transaction", "of " + Ansi(TheProcess().fileName));
        return call.fails() ? call.failed(Acad::eLockViolation) : call.done(Acad::eOk);
    }
};

TransactionManager& Manager() {
    static TransactionManager manager;
    return manager;
}

}  // namespace

AcTransactionManager* TheTransactionManager() {
    return &Manager();
}
size_t ActiveTransactions() {
    return Manager().active.size();
}
void ForgetTransactions() {
    Manager().active.clear();
}

}  // namespace bench
