// One opening of a database object, from acdbOpenObject to close(), and the rules for concurrent openings. Every
// opening has its own AcDbObject, so a close identifies the opening. No AcDbObject is freed before AutoCAD stops, and
// its use after close is reported as a violation. An object's data is always read from the drawing; only an object that
// is not yet in a drawing carries its own record.
#pragma once

#include <string>

#include "AcDbDatabase.h"
#include "AcRxClass.h"
#include "ArxCall.h"

class AcDbObjectOpening {
 public:
    enum class State { kNew, kOpen, kClosed };

    // Creates an object of the record's class. ObjectClasses.cpp provides it, because it knows all classes.
    using Factory = AcDbObject* (*)(const bench::Record& record);
    static void SetFactory(Factory factory);

    // Accepts any class when `wanted` is null. Tracks "open object HANDLE" on success.
    static Acad::ErrorStatus Open(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode, bool openErased,
                                  const AcRxClass* wanted);
    static Acad::ErrorStatus Close(AcDbObject* object);
    // Called by the constructor that the module uses: attaches the record and tracks the new object.
    static void Begin(AcDbObject* object, const bench::Record& record);
    // Adds the new object's record to the drawing under `owner` and leaves it open for writing.
    static Acad::ErrorStatus Adopt(AcDbObject* object, bench::Handle owner, bench::DrawingDatabase* database);
    static void End(AcDbObject* object);  // called by the destructor
    static void FreeAll();

    static AcDbObjectOpening& of(const AcDbObject* object) { return *object->mpOpening; }
    // Returns the object's data. Returns null and reports a violation when the opening has ended.
    static const bench::Record* Read(const AcDbObject* object, const char* what);
    // Also returns null when the object is not open for writing.
    static bench::Record* Write(AcDbObject* object, const char* what, Acad::ErrorStatus& status);
    // Returns the handle, or "(new)", for the call log.
    static std::string Name(const AcDbObject* object);

    State state = State::kNew;
    AcDb::OpenMode mode = AcDb::kForWrite;
    bench::DrawingDatabase* database = nullptr;
    bench::Handle handle = 0;
    bench::Record fresh;  // while new
};

// Implements a member function that reads the record: returns `value(record)`, or `none` when the call fails or the
// opening has ended.
template <class T, class Value>
T ReadValue(const AcDbObject* object, const char* name, T none, Value value) {
    bench::ArxCall call(name, AcDbObjectOpening::Name(object));
    const bench::Record* record = call.fails() ? nullptr : AcDbObjectOpening::Read(object, name);
    return record == nullptr ? none : value(*record);
}

// Defines the members that ACDB_DECLARE_MEMBERS declares. isA() on a closed object is a violation.
#define ACDB_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS)                       \
    AcRxClass* CLASS_NAME::desc() {                                         \
        return bench::DescribeClass(L"" #CLASS_NAME, PARENT_CLASS::desc()); \
    }                                                                       \
    AcRxClass* CLASS_NAME::isA() const {                                    \
        AcDbObjectOpening::Read(this, "isA");                               \
        return desc();                                                      \
    }
