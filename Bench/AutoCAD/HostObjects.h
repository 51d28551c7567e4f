// Openings of database objects. Every opening is an object of its own (the proxy that the module holds), so that it is
// known which one was closed: a proxy is never freed before AutoCAD stops, and its use after close is accused. The data
// of an object in the drawing are always read from the drawing itself; only an object that is in no drawing yet carries
// its own record.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "HostDrawing.h"
#include "HostCall.h"
#include "dbsymtb.h"
#include "rxclass.h"

// What an id points at; one for every handle that was asked for, kept as long as the process's drawings.
class AcDbStub {
 public:
    bench::Handle handle;
    AcDbImpDatabase* database;
};

class AcDbImpDatabase {
 public:
    explicit AcDbImpDatabase(AcDbTransactionManager* transactions);

    AcDbObjectId id(bench::Handle handle);         // null for 0
    static const AcDbStub* stub(AcDbObjectId id);  // null when the id is none of ours
    static AcDbImpDatabase* of(const AcDbDatabase* database) { return database->mpImpDatabase; }
    AcDbDatabase* database() { return database_.get(); }

    bench::Drawing drawing;
    bool open = true;
    AcDbTransactionManager* const transactions;
    // Openings of each object that are not closed.
    struct Openings {
        int readers = 0;
        int writers = 0;
    };
    std::map<bench::Handle, Openings> openings;

 private:
    std::map<bench::Handle, std::unique_ptr<AcDbStub>> stubs_;
    std::unique_ptr<AcDbDatabase> database_;
};

class AcDbImpObject {
 public:
    enum class State { kNew, kOpen, kClosed };

    // For the constructors of the declared classes: an object that is in no drawing yet.
    static void Begin(AcDbObject* object, bench::RecordKind kind, const wchar_t* className);
    static void End(AcDbObject* object);  // its destructor

    // `wanted` null: any class. Settles nothing and owes "open object HANDLE" on success.
    static Acad::ErrorStatus Open(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode, bool openErased,
                                  const AcRxClass* wanted);
    static Acad::ErrorStatus Close(AcDbObject* object);
    // The new object's record goes into the drawing under `owner`, still open for writing.
    static Acad::ErrorStatus Adopt(AcDbObject* object, bench::Handle owner, AcDbImpDatabase* database);
    static void FreeProxies();

    static AcDbImpObject& of(const AcDbObject* object) { return *object->mpImpObject; }
    // The object's data; null, with an accusation of the caller, when the opening is over.
    static const bench::Record* Read(const AcDbObject* object, const char* what);
    static bench::Record* Write(AcDbObject* object, const char* what, Acad::ErrorStatus& status);
    // For the journal: the handle, or "(new)".
    static std::string Name(const AcDbObject* object);

    State state = State::kNew;
    AcDb::OpenMode mode = AcDb::kForWrite;
    AcDbImpDatabase* database = nullptr;
    bench::Handle handle = 0;
    bench::Record fresh;  // while new

 private:
    static AcDbObject* MakeProxy(const bench::Record& record);
};

// Descriptions of classes, made at their first use.
class AcRxImpClass {
 public:
    static AcRxClass* Get(const wchar_t* name, AcRxClass* parent, const wchar_t* dxfName = L"");
    std::wstring name;
    std::wstring dxfName;
    AcRxClass* parent = nullptr;
    static AcRxImpClass* of(const AcRxClass* c) { return c->m_pImp; }
};

class AcDbImpIterator {
 public:
    static AcDbObjectIterator* Make(AcDbImpDatabase* database, bench::Handle owner,
                                    const std::vector<bench::Handle>& list);
    AcDbImpDatabase* database = nullptr;
    bench::Handle owner = 0;
    std::vector<bench::Handle> handles;
    size_t place = 0;
    bool skips(bool skipDeleted) const;
};
