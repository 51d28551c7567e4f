// Transactions: each keeps a copy of the drawing from its start; an abort puts it back, whoever changed it and whether
// or not through the transaction. A planned failure of endTransaction ends the transaction with an abort.
#include <memory>

#include "HostObjects.h"
#include "HostSession.h"
#include "HostTransactions.h"

namespace bench {
namespace {

class BenchTransaction : public AcTransaction {
 public:
    explicit BenchTransaction(const Drawing& start) : start_(start) {}
    Acad::ErrorStatus getObject(AcDbObject*& obj, AcDbObjectId objectId, AcDb::OpenMode mode,
                                bool openErasedObject) override;

    const Drawing& start() const { return start_; }
    void forget() { active_ = false; }
    void closeObjects() {
        for (AcDbObject* object : objects_)
            if (AcDbImpObject::of(object).state == AcDbImpObject::State::kOpen)
                AcDbImpObject::Close(object);
            else
                Accuse("The object " + AcDbImpObject::Name(object) +
                       " came through a transaction and was closed by its user.");
        objects_.clear();
    }
    void keep(AcDbObject* object) { objects_.push_back(object); }

 private:
    Drawing start_;
    bool active_ = true;
    std::vector<AcDbObject*> objects_;
};

Acad::ErrorStatus BenchTransaction::getObject(AcDbObject*& obj, AcDbObjectId objectId, AcDb::OpenMode mode,
                                              bool openErasedObject) {
    HostCall call("AcTransaction::getObject", HandleText(objectId.handle()));
    obj = nullptr;
    if (call.fails()) return call.failed(Acad::eWasOpenForWrite);
    if (!active_) {
        Accuse("A transaction was asked for an object after it had ended.");
        return call.done(Acad::eNotTopTransaction);
    }
    const Acad::ErrorStatus status = AcDbImpObject::Open(obj, objectId, mode, openErasedObject, nullptr);
    if (status == Acad::eOk) keep(obj);
    return call.done(status);
}

class BenchTransactionManager : public AcTransactionManager {
 public:
    AcTransaction* startTransaction() override {
        HostCall call("AcTransactionManager::startTransaction", "");
        Drawing* drawing = CurrentDrawing();
        if (call.fails() || drawing == nullptr) return nullptr;
        all_.push_back(std::make_unique<BenchTransaction>(*drawing));
        active_.push_back(all_.back().get());
        Owe("transaction", "of " + Narrow(TheSession().fileName));
        return active_.back();
    }

    Acad::ErrorStatus endTransaction() override {
        HostCall call("AcTransactionManager::endTransaction", "");
        if (active_.empty()) return noTransaction(call, "endTransaction");
        finish(call.fails());
        return call.fails() ? call.failed(Acad::eLockViolation) : call.done(Acad::eOk);
    }

    Acad::ErrorStatus abortTransaction() override {
        HostCall call("AcTransactionManager::abortTransaction", "");
        if (active_.empty()) return noTransaction(call, "abortTransaction");
        finish(true);
        return call.fails() ? call.failed(Acad::eLockViolation) : call.done(Acad::eOk);
    }

    int numActiveTransactions() override {
        HostCall call("AcTransactionManager::numActiveTransactions", "");
        return call.done(count());
    }

    AcTransaction* topTransaction() override {
        HostCall call("AcTransactionManager::topTransaction", "");
        return call.fails() || active_.empty() ? nullptr : active_.back();
    }

    Acad::ErrorStatus addNewlyCreatedDBRObject(AcDbObject* obj, bool) override {
        HostCall call("AcTransactionManager::addNewlyCreatedDBRObject", obj == nullptr ? "" : AcDbImpObject::Name(obj));
        if (call.fails() || active_.empty()) return call.failed(Acad::eNoActiveTransactions);
        if (obj == nullptr) return call.done(Acad::eNullObjectPointer);
        if (AcDbImpObject::of(obj).state != AcDbImpObject::State::kOpen) return call.done(Acad::eNotInDatabase);
        active_.back()->keep(obj);
        return call.done(Acad::eOk);
    }

    Acad::ErrorStatus getObject(AcDbObject*& obj, AcDbObjectId objectId, AcDb::OpenMode mode,
                                bool openErasedObject) override {
        obj = nullptr;
        return active_.empty() ? Acad::eNoActiveTransactions
                               : active_.back()->getObject(obj, objectId, mode, openErasedObject);
    }

    int enableGraphicsFlush(bool doEnable) override {
        HostCall call("AcTransactionManager::enableGraphicsFlush", doEnable ? "1" : "0");
        return call.done(0);
    }
    void flushGraphics() override { HostCall call("AcTransactionManager::flushGraphics", ""); }

    int count() const { return static_cast<int>(active_.size()); }
    void forget() {
        active_.clear();
        all_.clear();
    }

 private:
    Acad::ErrorStatus noTransaction(HostCall& call, const char* what) {
        Accuse(std::string(what) + " was called although no transaction is active.");
        return call.done(Acad::eNoActiveTransactions);
    }

    void finish(bool abort) {
        BenchTransaction* transaction = active_.back();
        active_.pop_back();
        transaction->closeObjects();
        transaction->forget();
        if (abort) CurrentDrawing()->restore(transaction->start());
        Settle("transaction", "of " + Narrow(TheSession().fileName));
    }

    std::vector<std::unique_ptr<BenchTransaction>> all_;
    std::vector<BenchTransaction*> active_;
};

BenchTransactionManager& Manager() {
    static BenchTransactionManager manager;
    return manager;
}

}  // namespace

AcTransactionManager* TransactionManager() {
    return &Manager();
}
int ActiveTransactions() {
    return Manager().count();
}
void ForgetTransactions() {
    Manager().forget();
}

}  // namespace bench
