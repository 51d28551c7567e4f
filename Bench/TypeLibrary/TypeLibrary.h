// Interfaces of a COM server as a client's compiler sees them: identifiers, slots, names and parameter types. They are
// read from a type library, or from a listing like Tests/Declarations/virtual-slots.txt, and compared. A wrong slot is
// found by no compiler and no linker; the call then runs another function and usually ends the process.
#pragma once

#include <string>
#include <vector>

namespace bench {

struct InterfaceMethod {
    int slot = 0;
    std::string result;                   // "HRESULT"
    std::string name;                     // "getPartAtt"
    std::vector<std::string> parameters;  // "BSTR", "long *"
};

struct ComInterface {
    std::string name;
    std::string identifier;                // "{6D1F0A31-52C4-4E0B-9A17-3C885E21B001}", upper case
    std::vector<InterfaceMethod> methods;  // by slot, inherited ones included, without those of IDispatch
};

// Dual and plain interfaces of a type library (a .tlb file, or the .dll, .exe or .ocx that holds one), in its order.
// Throws std::runtime_error with a sentence when it cannot be read.
std::vector<ComInterface> ReadTypeLibrary(const std::string& path);

// The interfaces of a listing: a line with name and identifier, then a line "slot result name(types)" for each method.
// Classes without an identifier are skipped. Throws std::runtime_error with a sentence for any other line.
std::vector<ComInterface> ReadListing(const std::string& path);

// Writes what ReadListing reads.
std::string Listing(const std::vector<ComInterface>& interfaces);

// One sentence for each expected interface or method that differs in the library. What the library has beyond them does
// not matter. A method named "reservedSlot..." stands for any method of its slot.
std::vector<std::string> Differences(const std::vector<ComInterface>& expected,
                                     const std::vector<ComInterface>& library);

}  // namespace bench
