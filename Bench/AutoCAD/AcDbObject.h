// One opening of a database object, from acdbOpenObject to close(): the rules for who may have an object open how.
// Every opening has an AcDbObject of its own, so that it is known which one was closed; none is freed before AutoCAD
// stops, and its use after close is accused. The data of an object in the drawing are always read from the drawing
// itself; only an object that is in no drawing yet carries its own record.
#pragma once

#include <string>

#include "AcDbDatabase.h"
#include "AcRxClass.h"
#include "ArxCall.h"

class AcDbObjectOpening {
 public:
    enum class State { kNew, kOpen, kClosed };

    // Makes an object of the class that stands for the record; given by what knows all classes.
    using Factory = AcDbObject* (*)(const bench::Record& record);
    static void SetFactory(Factory factory);

    // `wanted` null: any class. Owes "open object HANDLE" on success.
    static Acad::ErrorStatus Open(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode, bool openErased,
                                  const AcRxClass* wanted);
    static Acad::ErrorStatus Close(AcDbObject* object);
    // For the constructor that a module calls: the object has this record, and the balance owes it.
    static void Begin(AcDbObject* object, const bench::Record& record);
    // The new object's record goes into the drawing under `owner`, still open for writing.
    static Acad::ErrorStatus Adopt(AcDbObject* object, bench::Handle owner, bench::DrawingDatabase* database);
    static void End(AcDbObject* object);  // its destructor
    static void FreeAll();

    static AcDbObjectOpening& of(const AcDbObject* object) { return *object->mpOpening; }
    // The object's data; null, with an accusation of the caller, when the opening is over.
    static const bench::Record* Read(const AcDbObject* object, const char* what);
    // Null also where the object is not open for writing.
    static bench::Record* Write(AcDbObject* object, const char* what, Acad::ErrorStatus& status);
    // For the journal: the handle, or "(new)".
    static std::string Name(const AcDbObject* object);

    State state = State::kNew;
    AcDb::OpenMode mode = AcDb::kForWrite;
    bench::DrawingDatabase* database = nullptr;
    bench::Handle handle = 0;
    bench::Record fresh;  // while new
};

// A member that answers with something of the object's record: `value`'s answer, or `none` where the call fails or the
// opening is over.
template <class T, class Value>
T Answered(const AcDbObject* object, const char* name, T none, Value value) {
    bench::ArxCall call(name, AcDbObjectOpening::Name(object));
    const bench::Record* record = call.fails() ? nullptr : AcDbObjectOpening::Read(object, name);
    return record == nullptr ? none : value(*record);
}

// The members that ACDB_DECLARE_MEMBERS declares. The class of an object that was closed is asked for by mistake.
#define ACDB_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS)                       \
    AcRxClass* CLASS_NAME::desc() {                                         \
        return bench::DescribeClass(L"" #CLASS_NAME, PARENT_CLASS::desc()); \
    }                                                                       \
    AcRxClass* CLASS_NAME::isA() const {                                    \
        AcDbObjectOpening::Read(this, "isA");                               \
        return desc();                                                      \
    }
