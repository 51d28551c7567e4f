// Opening, closing and giving new objects to the drawing: AutoCAD's rules for who may have an object open how.
#include <algorithm>

#include "HostObjects.h"
#include "HostSession.h"

using bench::Record;
using bench::RecordKind;

namespace {

// Entities of other applications and layer records: declared classes whose run-time class is found in the record.
template <class Base>
class NamedProxy : public Base {
 public:
    explicit NamedProxy(const std::wstring& name) : class_(AcRxImpClass::Get(name.c_str(), Base::desc())) {}
    AcRxClass* isA() const override {
        AcDbImpObject::Read(this, "isA");
        return class_;
    }

 private:
    AcRxClass* class_;
};

class EntityProxy : public AcDbEntity {
 public:
    EntityProxy() = default;
};

// While a proxy is being made its constructor's object is not the module's own.
bool makingProxy = false;

std::vector<AcDbObject*>& Proxies() {
    static std::vector<AcDbObject*> proxies;
    return proxies;
}

}  // namespace

AcDbObject* AcDbImpObject::MakeProxy(const Record& record) {
    makingProxy = true;
    AcDbObject* object = nullptr;
    switch (record.kind) {
        case RecordKind::kBlockTable:
            object = new AcDbBlockTable;
            break;
        case RecordKind::kBlockRecord:
            object = new AcDbBlockTableRecord;
            break;
        case RecordKind::kReference:
            object = new AcDbBlockReference;
            break;
        case RecordKind::kAttribute:
            object = new AcDbAttribute;
            break;
        case RecordKind::kText:
            object = new AcDbText;
            break;
        case RecordKind::kEntity:
            object = new NamedProxy<EntityProxy>(record.className);
            break;
        case RecordKind::kLayerRecord:
            object = new NamedProxy<AcDbSymbolTableRecord>(record.className);
            break;
        case RecordKind::kLayerTable:
            object = new NamedProxy<AcDbSymbolTable>(record.className);
            break;
        case RecordKind::kObject:
            object = new NamedProxy<AcDbObject>(record.className);
            break;
    }
    makingProxy = false;
    Proxies().push_back(object);
    return object;
}

void AcDbImpObject::Begin(AcDbObject* object, RecordKind kind, const wchar_t* className) {
    AcDbImpObject& imp = of(object);
    if (!imp.fresh.className.empty()) bench::Settle("unowned object", bench::Narrow(imp.fresh.className));
    imp.fresh.kind = kind;
    imp.fresh.className.clear();
    if (makingProxy) return;
    imp.fresh.className = className;
    bench::Owe("unowned object", bench::Narrow(className));
}

void AcDbImpObject::End(AcDbObject* object) {
    auto& proxies = Proxies();
    const auto kept = std::find(proxies.begin(), proxies.end(), object);
    if (kept != proxies.end()) {
        proxies.erase(kept);
        bench::Accuse("The object " + Name(object) + " belongs to the drawing and was deleted by its user.");
    } else if (of(object).state == State::kNew && !of(object).fresh.className.empty()) {
        bench::Settle("unowned object", bench::Narrow(of(object).fresh.className));
    }
    delete object->mpImpObject;
}

void AcDbImpObject::FreeProxies() {
    auto& proxies = Proxies();
    std::vector<AcDbObject*> doomed;
    doomed.swap(proxies);
    for (AcDbObject* object : doomed)
        delete object;
}

Acad::ErrorStatus AcDbImpObject::Open(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode, bool openErased,
                                      const AcRxClass* wanted) {
    object = nullptr;
    if (id.isNull()) return Acad::eNullObjectId;
    const AcDbStub* stub = AcDbImpDatabase::stub(id);
    if (stub == nullptr) {
        bench::Accuse("An object was to be opened by an id that is no id of this session.");
        return Acad::eInvalidInput;
    }
    AcDbImpDatabase* database = stub->database;
    const Record* record = database->open ? database->drawing.find(stub->handle) : nullptr;
    if (record == nullptr) return Acad::ePermanentlyErased;
    if (record->erased && !openErased) return Acad::eWasErased;
    AcDbImpDatabase::Openings& openings = database->openings[stub->handle];
    if (mode != AcDb::kForNotify && openings.writers > 0) return Acad::eWasOpenForWrite;
    if (mode == AcDb::kForWrite && openings.readers > 0) return Acad::eWasOpenForRead;
    if (mode == AcDb::kForRead && openings.readers >= 256) return Acad::eAtMaxReaders;
    if (mode == AcDb::kForWrite && database->drawing.onLockedLayer(*record)) return Acad::eOnLockedLayer;

    AcDbObject* proxy = MakeProxy(*record);
    AcDbImpObject& imp = of(proxy);
    imp.state = State::kOpen;
    imp.mode = mode;
    imp.database = database;
    imp.handle = stub->handle;
    if (wanted != nullptr && !AcRxClass::isDerivedFrom(proxy->isA(), wanted)) {
        imp.state = State::kClosed;
        return Acad::eNotThatKindOfClass;
    }
    if (mode == AcDb::kForWrite) ++openings.writers;
    if (mode == AcDb::kForRead) ++openings.readers;
    bench::Owe("open object", bench::HandleText(imp.handle));
    object = proxy;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbImpObject::Close(AcDbObject* object) {
    AcDbImpObject& imp = of(object);
    if (imp.state == State::kNew) {
        bench::Accuse("An object that is in no drawing was closed; it is to be deleted.");
        return Acad::eNotInDatabase;
    }
    if (imp.state == State::kClosed) {
        bench::Accuse("The object " + Name(object) + " was closed a second time.");
        return Acad::eNotOpenForRead;
    }
    AcDbImpDatabase::Openings& openings = imp.database->openings[imp.handle];
    if (imp.mode == AcDb::kForWrite) --openings.writers;
    if (imp.mode == AcDb::kForRead) --openings.readers;
    imp.state = State::kClosed;
    bench::Settle("open object", bench::HandleText(imp.handle));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbImpObject::Adopt(AcDbObject* object, bench::Handle owner, AcDbImpDatabase* database) {
    AcDbImpObject& imp = of(object);
    if (imp.state != State::kNew) {
        if (imp.state == State::kClosed)
            bench::Accuse("The object " + Name(object) + " was given to the drawing after it had been closed.");
        return Acad::eAlreadyInDb;
    }
    imp.fresh.owner = owner;
    const Record* record = database->drawing.add(imp.fresh);
    bench::Settle("unowned object", bench::Narrow(imp.fresh.className));
    imp.state = State::kOpen;
    imp.mode = AcDb::kForWrite;
    imp.database = database;
    imp.handle = record->handle;
    ++database->openings[imp.handle].writers;
    Proxies().push_back(object);
    bench::Owe("open object", bench::HandleText(imp.handle));
    return Acad::eOk;
}

const Record* AcDbImpObject::Read(const AcDbObject* object, const char* what) {
    const AcDbImpObject& imp = of(object);
    if (imp.state == State::kNew) return &imp.fresh;
    if (imp.state == State::kClosed) {
        bench::Accuse(std::string(what) + " was called on the object " + Name(object) + " after it had been closed.");
        return nullptr;
    }
    return imp.database->drawing.find(imp.handle);
}

Record* AcDbImpObject::Write(AcDbObject* object, const char* what, Acad::ErrorStatus& status) {
    status = Acad::eOk;
    const Record* record = Read(object, what);
    if (record == nullptr)
        status = of(object).state == State::kClosed ? Acad::eNotOpenForWrite : Acad::ePermanentlyErased;
    else if (of(object).state == State::kOpen && of(object).mode != AcDb::kForWrite)
        status = Acad::eNotOpenForWrite;
    return status == Acad::eOk ? const_cast<Record*>(record) : nullptr;
}

std::string AcDbImpObject::Name(const AcDbObject* object) {
    return of(object).state == State::kNew ? "(new)" : bench::HandleText(of(object).handle);
}

// ---- The functions of the declarations ----

namespace {

std::string IdText(AcDbObjectId id) {
    const AcDbStub* stub = AcDbImpDatabase::stub(id);
    return stub == nullptr ? "(null)" : bench::HandleText(stub->handle);
}

Acad::ErrorStatus OpenCalled(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode, bool openErased,
                             const AcRxClass* wanted) {
    static const char* const modes[] = {" read", " write", " notify"};
    const std::string as = wanted == nullptr ? "" : " " + bench::Narrow(AcRxImpClass::of(wanted)->name);
    bench::HostCall call("acdbOpenObject", IdText(id) + modes[mode] + as);
    object = nullptr;
    if (call.fails()) return call.failed(Acad::eWasOpenForWrite);
    return call.done(AcDbImpObject::Open(object, id, mode, openErased, wanted));
}

}  // namespace

Acad::ErrorStatus acdbOpenObject(AcDbObject*& pObj, AcDbObjectId id, AcDb::OpenMode mode, bool openErased,
                                 const AcRxClass* pClass) {
    return OpenCalled(pObj, id, mode, openErased, pClass);
}

Acad::ErrorStatus acdbOpenObject(AcDbObject*& pObj, AcDbObjectId id, AcRxClass* (*pfDesc)(), AcDb::OpenMode mode,
                                 bool openErased) {
    return OpenCalled(pObj, id, mode, openErased, pfDesc == nullptr ? nullptr : pfDesc());
}

Acad::ErrorStatus acdbOpenObject(AcDbEntity*& pEnt, AcDbObjectId id, AcDb::OpenMode mode, bool openErased) {
    AcDbObject* object = nullptr;
    const Acad::ErrorStatus status = OpenCalled(object, id, mode, openErased, AcDbEntity::desc());
    pEnt = static_cast<AcDbEntity*>(object);
    return status == Acad::eNotThatKindOfClass ? Acad::eNotAnEntity : status;
}
