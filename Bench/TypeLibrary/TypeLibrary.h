// The interfaces of a COM server as a client's compiler sees them: identifiers, slots, names and parameter types. They
// are read from a type library or from a listing like Tests/Declarations/virtual-slots.txt, and compared. Neither
// compiler nor linker detects a wrong slot; the call then runs another function and usually crashes the process.
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
    std::vector<InterfaceMethod> methods;  // by slot, including inherited ones except those of IDispatch
};

// Returns the dual and plain interfaces of a type library (a .tlb file, or a .dll, .exe or .ocx that contains one) in
// its order. Throws std::runtime_error with a sentence when it cannot be read.
std::vector<ComInterface> ReadTypeLibrary(const std::string& path);

// Returns the interfaces of a listing: a line with name and identifier, then a line "slot result name(types)" for each
// method. Skips classes without an identifier. Throws std::runtime_error with a sentence for any other line.
std::vector<ComInterface> ReadListing(const std::string& path);

// Formats interfaces as ReadListing reads them.
std::string Listing(const std::vector<ComInterface>& interfaces);

// Returns one sentence for each expected interface or method that differs in the library. Ignores further ones in the
// library. An expected method named "reservedSlot..." matches any method in its slot.
std::vector<std::string> Differences(const std::vector<ComInterface>& expected,
                                     const std::vector<ComInterface>& library);

}  // namespace bench
