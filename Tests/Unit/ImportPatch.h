// Replaces a function that this program (or a given module) imports, for the length of a scope, so that a call of
// Windows or the C runtime fails or is recorded. The exporting library does not matter. Other modules keep their own
// import. C++ functions have plain names in DecoratedNames.h.
#pragma once

#include <windows.h>

#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "DecoratedNames.h"

// Calls visit(library, name, place) for every function that a module imports by name; `place` holds its address.
template <class Visit>
void ForEachImport(HMODULE module, Visit visit) {
    char* const base = reinterpret_cast<char*>(module);
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* from = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
    for (; from->Name; ++from) {
        const auto* names = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + from->OriginalFirstThunk);
        auto* slots = reinterpret_cast<IMAGE_THUNK_DATA*>(base + from->FirstThunk);
        for (size_t i = 0; names[i].u1.AddressOfData; ++i) {
            if (IMAGE_SNAP_BY_ORDINAL(names[i].u1.Ordinal)) continue;
            const auto* import = reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + names[i].u1.AddressOfData);
            visit(base + from->Name, reinterpret_cast<const char*>(import->Name), &slots[i].u1.Function);
        }
    }
}

class ImportPatch {
 public:
    template <class Function>
    ImportPatch(const char* name, Function* replacement, HMODULE module = GetModuleHandleW(nullptr)) {
        ForEachImport(module, [&](const char*, const char* import, ULONGLONG* place) {
            if (IsImport(import, name)) slots_.emplace_back(place, *place);
        });
        // A patch that patches nothing would let a test pass for the wrong reason.
        if (slots_.empty()) throw std::logic_error(std::string(name) + " is not imported");
        for (const auto& slot : slots_)
            Write(slot.first, reinterpret_cast<ULONGLONG>(replacement));
    }
    ~ImportPatch() {
        for (const auto& [place, original] : slots_)
            Write(place, original);
    }
    ImportPatch(const ImportPatch&) = delete;
    ImportPatch& operator=(const ImportPatch&) = delete;

    template <class Function>
    Function* original() const {
        return reinterpret_cast<Function*>(slots_.front().second);
    }

 private:
    static bool IsImport(const char* import, const char* name) {
        for (const DecoratedName& row : kDecoratedNames)
            if (std::strcmp(row.plain, name) == 0)
                return std::strcmp(row.gcc, import) == 0 || std::strcmp(row.visualCpp, import) == 0;
        return std::strcmp(import, name) == 0;
    }
    static void Write(ULONGLONG* place, ULONGLONG value) {
        DWORD protection = 0;
        VirtualProtect(place, sizeof *place, PAGE_READWRITE, &protection);
        *place = value;
        VirtualProtect(place, sizeof *place, protection, &protection);
    }

    std::vector<std::pair<ULONGLONG*, ULONGLONG>> slots_;  // the places and their original contents
};
