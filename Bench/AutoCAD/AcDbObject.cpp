#include "AcDbObject.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "AcDbObjectId.h"
#include "ArxCall.h"
#include "ProcessState.h"
#include "Texts.h"

using bench::ArxCall;
using bench::Record;

namespace {

AcDbObjectOpening::Factory makeObject = nullptr;
// Objects that belong to the drawing rather than to their user; kept until AutoCAD stops.
std::vector<AcDbObject*> kept;

std::string UnownedName(const AcDbObjectOpening& opening) {
    return bench::Ansi(opening.fresh.className);
}

}  // namespace

// ---- Openings ----

void AcDbObjectOpening::SetFactory(Factory factory) {
    makeObject = factory;
}

Acad::ErrorStatus AcDbObjectOpening::Open(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode, bool openErased,
                                          const AcRxClass* wanted) {
    object = nullptr;
    if (id.isNull()) return Acad::eNullObjectId;
    const AcDbStub* stub = bench::StubOf(id);
    if (stub == nullptr) {
        bench::ReportViolation("acdbOpenObject was called with an invalid object id.");
        return Acad::eInvalidInput;
    }
    bench::DrawingDatabase* database = stub->database;
    const Record* record = database->open ? database->drawing.find(stub->handle) : nullptr;
    if (record == nullptr) return Acad::ePermanentlyErased;
    if (record->erased && !openErased) return Acad::eWasErased;
    bench::DrawingDatabase::Openings& openings = database->openings[stub->handle];
    if (openings.writers > 0) return Acad::eWasOpenForWrite;
    if (mode == AcDb::kForWrite && openings.readers > 0) return Acad::eWasOpenForRead;
    if (mode == AcDb::kForWrite && database->drawing.onLockedLayer(*record)) return Acad::eOnLockedLayer;

    AcDbObject* opened = makeObject(*record);
    kept.push_back(opened);
    AcDbObjectOpening& opening = of(opened);
    opening.state = State::kOpen;
    opening.mode = mode;
    opening.database = database;
    opening.handle = stub->handle;
    if (wanted != nullptr && !AcRxClass::isDerivedFrom(opened->isA(), wanted)) {
        opening.state = State::kClosed;
        return Acad::eNotThatKindOfClass;
    }
    ++(mode == AcDb::kForWrite ? openings.writers : openings.readers);
    bench::TrackAcquire("open object", bench::HandleText(opening.handle));
    object = opened;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObjectOpening::Close(AcDbObject* object) {
    AcDbObjectOpening& opening = of(object);
    if (opening.state == State::kNew) {
        bench::ReportViolation("An object that is not in a drawing was closed; it must be deleted.");
        return Acad::eNotInDatabase;
    }
    if (opening.state == State::kClosed) {
        bench::ReportViolation("The object " + Name(object) + " was closed a second time.");
        return Acad::eNotOpenForRead;
    }
    bench::DrawingDatabase::Openings& openings = opening.database->openings[opening.handle];
    --(opening.mode == AcDb::kForWrite ? openings.writers : openings.readers);
    opening.state = State::kClosed;
    bench::TrackRelease("open object", bench::HandleText(opening.handle));
    return Acad::eOk;
}

void AcDbObjectOpening::Begin(AcDbObject* object, const Record& record) {
    of(object).fresh = record;
    bench::TrackAcquire("unowned object", UnownedName(of(object)));
}

Acad::ErrorStatus AcDbObjectOpening::Adopt(AcDbObject* object, bench::Handle owner, bench::DrawingDatabase* database) {
    AcDbObjectOpening& opening = of(object);
    if (opening.state != State::kNew) {
        if (opening.state == State::kClosed)
            bench::ReportViolation("The object " + Name(object) +
                                   " was given to the drawing after it had been closed.");
        return Acad::eAlreadyInDb;
    }
    opening.fresh.owner = owner;
    const Record* record = database->drawing.add(opening.fresh);
    bench::TrackRelease("unowned object", UnownedName(opening));
    opening.state = State::kOpen;
    opening.database = database;
    opening.handle = record->handle;
    ++database->openings[opening.handle].writers;
    kept.push_back(object);
    bench::TrackAcquire("open object", bench::HandleText(opening.handle));
    return Acad::eOk;
}

void AcDbObjectOpening::End(AcDbObject* object) {
    const auto place = std::find(kept.begin(), kept.end(), object);
    if (place != kept.end()) {
        kept.erase(place);
        bench::ReportViolation("The object " + Name(object) + " belongs to the drawing and was deleted by its user.");
    } else if (of(object).state == State::kNew) {
        bench::TrackRelease("unowned object", UnownedName(of(object)));
    }
    delete object->mpOpening;
}

void AcDbObjectOpening::FreeAll() {
    std::vector<AcDbObject*> doomed;
    doomed.swap(kept);
    for (AcDbObject* object : doomed)
        delete object;
}

const Record* AcDbObjectOpening::Read(const AcDbObject* object, const char* what) {
    const AcDbObjectOpening& opening = of(object);
    if (opening.state == State::kNew) return &opening.fresh;
    if (opening.state == State::kClosed) {
        bench::ReportViolation(std::string(what) + " was called on the object " + Name(object) +
                               " after it had been closed.");
        return nullptr;
    }
    return opening.database->drawing.find(opening.handle);
}

Record* AcDbObjectOpening::Write(AcDbObject* object, const char* what, Acad::ErrorStatus& status) {
    status = Acad::eOk;
    const Record* record = Read(object, what);
    if (record == nullptr)
        status = of(object).state == State::kClosed ? Acad::eNotOpenForWrite : Acad::ePermanentlyErased;
    else if (of(object).mode != AcDb::kForWrite)
        status = Acad::eNotOpenForWrite;
    return status == Acad::eOk ? const_cast<Record*>(record) : nullptr;
}

std::string AcDbObjectOpening::Name(const AcDbObject* object) {
    return of(object).state == State::kNew ? "(new)" : bench::HandleText(of(object).handle);
}

// ---- The class ----

void* AcHeapOperators::operator new(size_t size) {
    void* memory = std::malloc(size);
    if (memory == nullptr) std::abort();
    return memory;
}

void AcHeapOperators::operator delete(void* p) {
    std::free(p);
}

ACRX_DEFINE_MEMBERS(AcGiDrawable, AcRxObject)
AcGiDrawable::AcGiDrawable() = default;
AcGiDrawable::~AcGiDrawable() = default;

ACDB_DEFINE_MEMBERS(AcDbObject, AcGiDrawable)
AcDbObject::AcDbObject() : mpOpening(new AcDbObjectOpening) {}
AcDbObject::~AcDbObject() {
    AcDbObjectOpening::End(this);
}

Acad::ErrorStatus AcDbObject::close() {
    ArxCall call("AcDbObject::close", AcDbObjectOpening::Name(this));
    const Acad::ErrorStatus status = AcDbObjectOpening::Close(this);
    return call.fails() ? call.failed(Acad::eWasNotifying) : call.done(status);
}

namespace {

Acad::ErrorStatus Open(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode, bool openErased,
                       const AcRxClass* wanted) {
    const std::string as = wanted == nullptr ? "" : " " + bench::Ansi(bench::ClassName(wanted));
    ArxCall call("acdbOpenObject", bench::IdText(id) + (mode == AcDb::kForWrite ? " write" : " read") + as);
    object = nullptr;
    if (call.fails()) return call.failed(Acad::eWasOpenForWrite);
    return call.done(AcDbObjectOpening::Open(object, id, mode, openErased, wanted));
}

}  // namespace

Acad::ErrorStatus acdbOpenObject(AcDbObject*& pObj, AcDbObjectId id, AcDb::OpenMode mode, bool openErased,
                                 const AcRxClass* pClass) {
    return Open(pObj, id, mode, openErased, pClass);
}

Acad::ErrorStatus acdbOpenObject(AcDbObject*& pObj, AcDbObjectId id, AcRxClass* (*pfDesc)(), AcDb::OpenMode mode,
                                 bool openErased) {
    return Open(pObj, id, mode, openErased, pfDesc());
}
