// Owners and guards for what AutoCAD hands out and wants back: result buffer chains, opened drawing objects, selection
// sets, strings, a transaction, a system variable. Each gives back in its destructor, on every path. Giving back never
// reports a failure.
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

// The drawing that AutoCAD works on, borrowed; null when none is open.
AcDbDatabase* WorkingDatabase();
// The object with that handle in it. Throws "Can't get working database.", or `missing` when it has no such object.
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

// A drawing object that is open. `Open` gives AutoCAD's status and leaves the owner empty when it is not eOk.
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

// A selection set that AutoCAD fills through `put()`; call `taken()` when it did.
class SelectionSet {
 public:
    SelectionSet() = default;
    SelectionSet(const SelectionSet&) = delete;
    SelectionSet& operator=(const SelectionSet&) = delete;
    ~SelectionSet();

    int64_t* put() noexcept { return name_; }
    void taken() noexcept { taken_ = true; }
    const int64_t* name() const noexcept { return name_; }

 private:
    ads_name name_ = {0, 0};
    bool taken_ = false;
};

// A transaction for the length of a command. It begins with abort-on-end set; whoever succeeds clears that, and the end
// of the object ends the transaction instead of aborting it. Without a manager, or when AutoCAD starts none, it is not
// started and ends nothing.
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

// A system variable with another 16-bit value for a while. When the old value cannot be read, nothing is changed.
class SystemVariableGuard {
 public:
    SystemVariableGuard(const wchar_t* name, short value);
    SystemVariableGuard(const SystemVariableGuard&) = delete;
    SystemVariableGuard& operator=(const SystemVariableGuard&) = delete;
    ~SystemVariableGuard();

 private:
    const wchar_t* name_;
    short saved_ = 0;
    bool changed_ = false;
};
