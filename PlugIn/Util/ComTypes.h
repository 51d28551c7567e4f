// Owners of COM interfaces and BSTRs, used only in the COM layer.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <string>

#include "Lib/Handles.h"

template <class Interface>
void ReleaseInterface(Interface* pointer) noexcept {
    pointer->Release();
}

// Owns one reference to an interface.
template <class Interface>
class InterfacePtr : public Owner<Interface*, &ReleaseInterface<Interface>> {
 public:
    // Queries `object` for `iid`. Returns false and becomes null when the object does not support it.
    bool QueryFrom(IUnknown* object, REFIID iid) {
        void* found = nullptr;
        const bool has = SUCCEEDED(object->QueryInterface(iid, &found));
        this->reset(has ? static_cast<Interface*>(found) : nullptr);
        return has;
    }
    Interface* operator->() const noexcept { return this->get(); }
};

// Owns a BSTR argument: converted from a narrow string (none from null), or empty to receive one through put().
class BStr : public Owner<BSTR, SysFreeString> {
 public:
    BStr() = default;
    explicit BStr(const char* text);

    // Returns the text up to its first zero, in the ANSI code page; empty without a BSTR.
    std::string ToNarrow() const;
};
