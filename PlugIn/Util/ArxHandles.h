// Owners and guards of what AutoCAD hands out and expects back: result buffer chains, open drawing objects, selection
// sets, strings, a transaction. Each releases or restores in its destructor, and ignores failures then.
#pragma once

#include <windows.h>

#include <acadstrc.h>
#include <acdb.h>
#include <acutads.h>
#include <acutmem.h>
#include <adsdef.h>
#include <dbmain.h>
#include <dbtrans.h>

#include <string>

#include "Lib/Handles.h"

// Returns AutoCAD's current drawing, or null when none is open. AutoCAD owns it.
AcDbDatabase* WorkingDatabase();
// Returns the object with that handle in the working database. Throws "Can't get working database.", or `missing` when
// there is no such object.
AcDbObjectId ObjectIdOf(const std::string& handle, const char* missing);

using ResbufChain = Owner<resbuf*, acutRelRb>;

// acutDelString is overloaded, and cannot be named as a closing function.
inline void DeleteArxString(ACHAR* text) noexcept {
    acutDelString(text);
}
using ArxString = Owner<ACHAR*, DeleteArxString>;

template <class Object>
void CloseObject(Object* object) noexcept {
    object->close();
}

// Owns an open drawing object. `Open` returns AutoCAD's status; unless that is eOk, the owner is empty.
template <class Object>
class OpenObject : public Owner<Object*, &CloseObject<Object>> {
 public:
    using Owner<Object*, &CloseObject<Object>>::Owner;

    Acad::ErrorStatus Open(AcDbObjectId id, AcDb::OpenMode mode) {
        Object* object = nullptr;
        const Acad::ErrorStatus status = acdbOpenObject(object, id, mode);
        this->reset(status == Acad::eOk ? object : nullptr);
        return status;
    }
    Object* operator->() const noexcept { return this->get(); }
};

// Owns a selection set that AutoCAD fills through `put()`. Call `setFilled()` after AutoCAD has filled it.
class SelectionSet {
 public:
    SelectionSet() = default;
    SelectionSet(const SelectionSet&) = delete;
    SelectionSet& operator=(const SelectionSet&) = delete;
    ~SelectionSet();

    int64_t* put() noexcept { return name_; }
    void setFilled() noexcept { filled_ = true; }
    const int64_t* name() const noexcept { return name_; }

 private:
    ads_name name_ = {0, 0};
    bool filled_ = false;
};

// A transaction for the duration of a command. The destructor aborts it unless SetAbortOnEnd(false) was called. Does
// nothing when there is no manager or AutoCAD starts no transaction.
class ScopedTransaction {
 public:
    explicit ScopedTransaction(AcDbTransactionManager* manager);
    ScopedTransaction(const ScopedTransaction&) = delete;
    ScopedTransaction& operator=(const ScopedTransaction&) = delete;
    ~ScopedTransaction();

    bool started() const noexcept { return started_; }
    void SetAbortOnEnd(bool abortOnEnd) noexcept { abortOnEnd_ = abortOnEnd; }

 private:
    AcDbTransactionManager* manager_;
    bool started_ = false;
    bool abortOnEnd_ = true;
};
