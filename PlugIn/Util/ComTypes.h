// Owners of what COM hands out. They never leave the COM layer.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <string>

#include "Lib/Handles.h"

template <class Interface>
void ReleaseInterface(Interface* pointer) noexcept {
    pointer->Release();
}

// One counted reference to an interface.
template <class Interface>
class InterfacePtr : public Owner<Interface*, &ReleaseInterface<Interface>> {
 public:
    // Queries `object` for `iid`; false, and null here, when it has no such interface.
    bool QueryFrom(IUnknown* object, REFIID iid) {
        void* found = nullptr;
        const bool has = SUCCEEDED(object->QueryInterface(iid, &found));
        this->reset(has ? static_cast<Interface*>(found) : nullptr);
        return has;
    }
    Interface* operator->() const noexcept { return this->get(); }
};

// A BSTR of a call: made from a narrow text (null gives none), or empty to receive one through put().
class BStr : public Owner<BSTR, SysFreeString> {
 public:
    BStr() = default;
    explicit BStr(const char* text);

    // The text in the ANSI code page, up to its first zero; empty for none.
    std::string ToNarrow() const;
};
