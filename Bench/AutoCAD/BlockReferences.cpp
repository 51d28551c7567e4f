// Block references and their attribute iterators.
#include <cstring>

#include "HostObjects.h"

using bench::Handle;
using bench::HostCall;
using bench::Record;
using bench::RecordKind;

namespace {

template <class T>
T Get(const AcDbObject* object, const char* name, T (*value)(const Record&)) {
    HostCall call(name, AcDbImpObject::Name(object));
    const Record* record = call.fails() ? nullptr : AcDbImpObject::Read(object, name);
    return record == nullptr ? T() : value(*record);
}

template <class T>
Acad::ErrorStatus Set(AcDbObject* object, const char* name, const std::string& shown, T Record::*field, T value) {
    HostCall call(name, AcDbImpObject::Name(object) + " " + shown);
    if (call.fails()) return call.failed(Acad::eNotOpenForWrite);
    Acad::ErrorStatus status;
    Record* record = AcDbImpObject::Write(object, name, status);
    if (record != nullptr) record->*field = value;
    return call.done(status);
}

Handle BlockHandle(AcDbObjectId id) {
    const AcDbStub* stub = AcDbImpDatabase::stub(id);
    const Record* record = stub == nullptr ? nullptr : stub->database->drawing.find(stub->handle);
    return record != nullptr && record->kind == RecordKind::kBlockRecord ? record->handle : 0;
}

}  // namespace

AcDbBlockReference::AcDbBlockReference() {
    AcDbImpObject::Begin(this, RecordKind::kReference, L"AcDbBlockReference");
}

AcDbBlockReference::AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId blockTableRec) : AcDbBlockReference() {
    Record& record = AcDbImpObject::of(this).fresh;
    record.position = position;
    record.block = BlockHandle(blockTableRec);
}

AcDbBlockReference::~AcDbBlockReference() = default;

AcDbObjectId AcDbBlockReference::blockTableRecord() const {
    HostCall call("AcDbBlockReference::blockTableRecord", AcDbImpObject::Name(this));
    const Record* record = call.fails() ? nullptr : AcDbImpObject::Read(this, "blockTableRecord");
    AcDbImpDatabase* database = AcDbImpObject::of(this).database;
    return record == nullptr || database == nullptr ? AcDbObjectId() : database->id(record->block);
}

Acad::ErrorStatus AcDbBlockReference::setBlockTableRecord(AcDbObjectId newVal) {
    const Handle block = BlockHandle(newVal);
    if (block == 0) return Acad::eNullObjectId;
    return Set(this, "AcDbBlockReference::setBlockTableRecord", bench::HandleText(block), &Record::block, block);
}

AcGePoint3d AcDbBlockReference::position() const {
    return Get<AcGePoint3d>(this, "AcDbBlockReference::position", [](const Record& r) { return r.position; });
}
Acad::ErrorStatus AcDbBlockReference::setPosition(const AcGePoint3d& newVal) {
    return Set(this, "AcDbBlockReference::setPosition", bench::PointText(&newVal.x), &Record::position, newVal);
}
AcGeScale3d AcDbBlockReference::scaleFactors() const {
    return Get<AcGeScale3d>(this, "AcDbBlockReference::scaleFactors", [](const Record& r) { return r.scale; });
}
Acad::ErrorStatus AcDbBlockReference::setScaleFactors(const AcGeScale3d& newVal) {
    return Set(this, "AcDbBlockReference::setScaleFactors", bench::PointText(&newVal.sx), &Record::scale, newVal);
}
double AcDbBlockReference::rotation() const {
    return Get<double>(this, "AcDbBlockReference::rotation", [](const Record& r) { return r.rotation; });
}
Acad::ErrorStatus AcDbBlockReference::setRotation(double newVal) {
    return Set(this, "AcDbBlockReference::setRotation", bench::NumberText(newVal), &Record::rotation, newVal);
}
AcGeVector3d AcDbBlockReference::normal() const {
    return Get<AcGeVector3d>(this, "AcDbBlockReference::normal", [](const Record& r) { return r.normal; });
}
Acad::ErrorStatus AcDbBlockReference::setNormal(const AcGeVector3d& newVal) {
    return Set(this, "AcDbBlockReference::setNormal", bench::PointText(&newVal.x), &Record::normal, newVal.normal());
}
AcGeMatrix3d AcDbBlockReference::blockTransform() const {
    return Get<AcGeMatrix3d>(this, "AcDbBlockReference::blockTransform", bench::ReferenceTransform);
}

Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbAttribute* pNewAttr) {
    AcDbObjectId id;
    return appendAttribute(id, pNewAttr);
}

Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbObjectId& objId, AcDbAttribute* pNewAttr) {
    HostCall call("AcDbBlockReference::appendAttribute", AcDbImpObject::Name(this));
    if (call.fails()) return call.failed(Acad::eNotOpenForWrite);
    Acad::ErrorStatus status;
    AcDbImpDatabase* database = AcDbImpObject::of(this).database;
    if (AcDbImpObject::Write(this, "appendAttribute", status) == nullptr) return call.done(status);
    if (pNewAttr == nullptr) return call.done(Acad::eNullEntityPointer);
    if (database == nullptr) return call.done(Acad::eNotInDatabase);
    status = AcDbImpObject::Adopt(pNewAttr, AcDbImpObject::of(this).handle, database);
    if (status == Acad::eOk) objId = database->id(AcDbImpObject::of(pNewAttr).handle);
    return call.done(status);
}

Acad::ErrorStatus AcDbBlockReference::openAttribute(AcDbAttribute*& pAttr, AcDbObjectId objId, AcDb::OpenMode mode,
                                                    bool openErasedOne) {
    pAttr = nullptr;
    const AcDbStub* stub = AcDbImpDatabase::stub(objId);
    HostCall call("AcDbBlockReference::openAttribute",
                  AcDbImpObject::Name(this) + " " + (stub == nullptr ? "(null)" : bench::HandleText(stub->handle)));
    if (call.fails()) return call.failed(Acad::eWasOpenForWrite);
    if (AcDbImpObject::Read(this, "openAttribute") == nullptr) return call.done(Acad::eNotOpenForRead);
    AcDbObject* object = nullptr;
    const Acad::ErrorStatus status = AcDbImpObject::Open(object, objId, mode, openErasedOne, AcDbAttribute::desc());
    pAttr = static_cast<AcDbAttribute*>(object);
    return call.done(status);
}

AcDbObjectIterator* AcDbBlockReference::attributeIterator() const {
    HostCall call("AcDbBlockReference::attributeIterator", AcDbImpObject::Name(this));
    const Record* record = call.fails() ? nullptr : AcDbImpObject::Read(this, "attributeIterator");
    AcDbImpDatabase* database = AcDbImpObject::of(this).database;
    if (record == nullptr || database == nullptr) return nullptr;
    return AcDbImpIterator::Make(database, record->handle, record->children);
}

// ---- Iterators ----

AcDbObjectIterator* AcDbImpIterator::Make(AcDbImpDatabase* database, Handle owner, const std::vector<Handle>& list) {
    AcDbObjectIterator* iterator = new AcDbObjectIterator;
    iterator->mpImpIterator->database = database;
    iterator->mpImpIterator->owner = owner;
    iterator->mpImpIterator->handles = list;
    bench::Owe("attribute iterator", bench::HandleText(owner));
    return iterator;
}

bool AcDbImpIterator::skips(bool skipDeleted) const {
    if (!skipDeleted || place >= handles.size()) return false;
    const Record* record = database->drawing.find(handles[place]);
    return record == nullptr || record->erased;
}

AcDbObjectIterator::AcDbObjectIterator() : mpImpIterator(new AcDbImpIterator) {}

AcDbObjectIterator::~AcDbObjectIterator() {
    bench::Settle("attribute iterator", bench::HandleText(mpImpIterator->owner));
    delete mpImpIterator;
}

void AcDbObjectIterator::start(bool atEnd) {
    HostCall call("AcDbObjectIterator::start", bench::HandleText(mpImpIterator->owner));
    AcDbImpIterator& imp = *mpImpIterator;
    imp.place = atEnd ? imp.handles.size() - 1 : 0;
    while (imp.skips(true))
        imp.place += atEnd ? -1 : 1;
}

bool AcDbObjectIterator::done() const {
    HostCall call("AcDbObjectIterator::done", bench::HandleText(mpImpIterator->owner));
    const bool done = mpImpIterator->place >= mpImpIterator->handles.size();
    call.result(done);
    return done;
}

void AcDbObjectIterator::step(bool backwards, bool skipDeleted) {
    HostCall call("AcDbObjectIterator::step", bench::HandleText(mpImpIterator->owner));
    AcDbImpIterator& imp = *mpImpIterator;
    // Stepping below the first entry wraps to a place past the end, which is "done" as well.
    do
        imp.place += backwards ? -1 : 1;
    while (imp.skips(skipDeleted));
}

AcDbObjectId AcDbObjectIterator::objectId() {
    HostCall call("AcDbObjectIterator::objectId", bench::HandleText(mpImpIterator->owner));
    AcDbImpIterator& imp = *mpImpIterator;
    if (imp.place >= imp.handles.size())
        bench::Accuse("An attribute iterator was asked for an object although it had reached its end.");
    const bool none = call.fails() || imp.place >= imp.handles.size();
    return none ? AcDbObjectId() : imp.database->id(imp.handles[imp.place]);
}
