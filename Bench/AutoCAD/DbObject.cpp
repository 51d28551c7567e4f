// Members of AcDbObject that are not about its extended data.
#include <cstdlib>

#include "HostObjects.h"
#include "HostSession.h"

using bench::HostCall;
using bench::Record;

void* AcHeapOperators::operator new(size_t size) {
    void* memory = std::malloc(size);
    if (memory == nullptr) std::abort();
    return memory;
}

void AcHeapOperators::operator delete(void* p) {
    std::free(p);
}

AcDbObject::AcDbObject() : mpImpObject(new AcDbImpObject) {}
AcDbObject::~AcDbObject() {
    AcDbImpObject::End(this);
}

AcDbObjectId AcDbObject::objectId() const {
    HostCall call("AcDbObject::objectId", AcDbImpObject::Name(this));
    const AcDbImpObject& imp = *mpImpObject;
    if (call.fails() || AcDbImpObject::Read(this, "objectId") == nullptr || imp.handle == 0) return AcDbObjectId();
    return imp.database->id(imp.handle);
}

AcDbObjectId AcDbObject::ownerId() const {
    HostCall call("AcDbObject::ownerId", AcDbImpObject::Name(this));
    const Record* record = call.fails() ? nullptr : AcDbImpObject::Read(this, "ownerId");
    return record == nullptr || record->owner == 0 ? AcDbObjectId() : mpImpObject->database->id(record->owner);
}

void AcDbObject::getAcDbHandle(AcDbHandle& handle) const {
    HostCall call("AcDbObject::getAcDbHandle", AcDbImpObject::Name(this));
    const Record* record = call.fails() ? nullptr : AcDbImpObject::Read(this, "getAcDbHandle");
    handle = AcDbHandle(record == nullptr ? Adesk::UInt64(0) : record->handle);
}

AcDbDatabase* AcDbObject::database() const {
    HostCall call("AcDbObject::database", AcDbImpObject::Name(this));
    if (call.fails() || AcDbImpObject::Read(this, "database") == nullptr) return nullptr;
    return mpImpObject->database == nullptr ? nullptr : mpImpObject->database->database();
}

Acad::ErrorStatus AcDbObject::upgradeOpen() {
    HostCall call("AcDbObject::upgradeOpen", AcDbImpObject::Name(this));
    if (call.fails()) return call.failed(Acad::eHadMultipleReaders);
    AcDbImpObject& imp = *mpImpObject;
    const Record* record = AcDbImpObject::Read(this, "upgradeOpen");
    if (record == nullptr || imp.state != AcDbImpObject::State::kOpen) return call.done(Acad::eNotOpenForRead);
    if (imp.mode == AcDb::kForWrite) return call.done(Acad::eWasOpenForWrite);
    AcDbImpDatabase::Openings& openings = imp.database->openings[imp.handle];
    if (openings.readers > 1) return call.done(Acad::eHadMultipleReaders);
    if (imp.database->drawing.onLockedLayer(*record)) return call.done(Acad::eOnLockedLayer);
    openings = {0, 1};
    imp.mode = AcDb::kForWrite;
    return call.done(Acad::eOk);
}

Acad::ErrorStatus AcDbObject::downgradeOpen() {
    HostCall call("AcDbObject::downgradeOpen", AcDbImpObject::Name(this));
    if (call.fails()) return call.failed(Acad::eWasOpenForRead);
    AcDbImpObject& imp = *mpImpObject;
    if (AcDbImpObject::Read(this, "downgradeOpen") == nullptr || imp.state != AcDbImpObject::State::kOpen ||
        imp.mode != AcDb::kForWrite)
        return call.done(Acad::eNotOpenForWrite);
    imp.database->openings[imp.handle] = {1, 0};
    imp.mode = AcDb::kForRead;
    return call.done(Acad::eOk);
}

Acad::ErrorStatus AcDbObject::close() {
    HostCall call("AcDbObject::close", AcDbImpObject::Name(this));
    const Acad::ErrorStatus status = AcDbImpObject::Close(this);
    return call.fails() ? call.failed(Acad::eWasNotifying) : call.done(status);
}

Acad::ErrorStatus AcDbObject::erase(Adesk::Boolean erasing) {
    HostCall call("AcDbObject::erase", AcDbImpObject::Name(this) + (erasing ? "" : " 0"));
    if (call.fails()) return call.failed(Acad::eNotOpenForWrite);
    Acad::ErrorStatus status;
    Record* record = AcDbImpObject::Write(this, "erase", status);
    if (record == nullptr) return call.done(status);
    if (mpImpObject->state == AcDbImpObject::State::kNew) return call.done(Acad::eNotInDatabase);
    if (record->erased && erasing) return call.done(Acad::eWasErased);
    record->erased = erasing;
    return call.done(Acad::eOk);
}
