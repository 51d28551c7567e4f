#include "TypeLibrary.h"

#include <windows.h>
#include <oleauto.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>

#include "BenchTexts.h"

namespace bench {
namespace {

struct Releaser {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <class Interface>
using Owned = std::unique_ptr<Interface, Releaser>;

void Check(HRESULT result, const std::string& what) {
    char code[16] = "";
    std::snprintf(code, sizeof code, "0x%08lX", static_cast<unsigned long>(result));
    if (FAILED(result)) throw std::runtime_error(what + " cannot be read (" + code + ").");
}

// A type description, which must be released by its own type.
class TypeAttributes {
 public:
    explicit TypeAttributes(ITypeInfo& type) : type_(type) { Check(type.GetTypeAttr(&attributes_), "A type"); }
    ~TypeAttributes() { type_.ReleaseTypeAttr(attributes_); }
    TypeAttributes(const TypeAttributes&) = delete;
    TypeAttributes& operator=(const TypeAttributes&) = delete;
    const TYPEATTR* operator->() const { return attributes_; }

 private:
    ITypeInfo& type_;
    TYPEATTR* attributes_ = nullptr;
};

std::string Name(ITypeInfo& type, MEMBERID member = MEMBERID_NIL) {
    BSTR name = nullptr;
    Check(type.GetDocumentation(member, &name, nullptr, nullptr, nullptr), "A name");
    std::string text = Utf8(std::wstring(name, SysStringLen(name)));
    SysFreeString(name);
    return text;
}

Owned<ITypeInfo> Referenced(ITypeInfo& type, HREFTYPE reference) {
    ITypeInfo* referenced = nullptr;
    Check(type.GetRefTypeInfo(reference, &referenced), "A type that " + Name(type) + " refers to");
    return Owned<ITypeInfo>(referenced);
}

// Spells the C++ type as clang does.
std::string TypeName(ITypeInfo& type, const TYPEDESC& description) {
    static const struct {
        VARTYPE type;
        const char* name;
    } kNames[] = {
        {VT_VOID, "void"},
        {VT_HRESULT, "HRESULT"},
        {VT_I1, "char"},
        {VT_UI1, "unsigned char"},
        {VT_I2, "short"},
        {VT_UI2, "unsigned short"},
        {VT_I4, "long"},
        {VT_UI4, "unsigned long"},
        {VT_I8, "long long"},
        {VT_UI8, "unsigned long long"},
        {VT_INT, "int"},
        {VT_UINT, "unsigned int"},
        {VT_R4, "float"},
        {VT_R8, "double"},
        {VT_BOOL, "VARIANT_BOOL"},
        {VT_BSTR, "BSTR"},
        {VT_DATE, "DATE"},
        {VT_CY, "CY"},
        {VT_VARIANT, "VARIANT"},
        {VT_ERROR, "SCODE"},
        {VT_UNKNOWN, "IUnknown *"},
        {VT_DISPATCH, "IDispatch *"},
        {VT_LPSTR, "LPSTR"},
        {VT_LPWSTR, "LPWSTR"},
        {VT_SAFEARRAY, "SAFEARRAY *"},
    };
    if (description.vt == VT_PTR) {
        const std::string target = TypeName(type, *description.lptdesc);
        return target + (target.back() == '*' ? "*" : " *");
    }
    if (description.vt == VT_USERDEFINED) return Name(*Referenced(type, description.hreftype));
    for (const auto& row : kNames)
        if (row.type == description.vt) return row.name;
    return "type " + std::to_string(description.vt);
}

// A dual interface first describes itself as a dispatch interface; index -1 leads to the one with slots.
Owned<ITypeInfo> WithSlots(Owned<ITypeInfo> type) {
    HREFTYPE partner = 0;
    if (TypeAttributes(*type)->typekind == TKIND_DISPATCH && SUCCEEDED(type->GetRefTypeOfImplType(UINT(-1), &partner)))
        return Referenced(*type, partner);
    return type;
}

void AppendMethods(ITypeInfo& type, std::vector<InterfaceMethod>& methods) {
    const TypeAttributes attributes(type);
    if (attributes->guid == IID_IDispatch || attributes->guid == IID_IUnknown) return;
    if (attributes->cImplTypes > 0) {
        HREFTYPE base = 0;
        Check(type.GetRefTypeOfImplType(0, &base), "The base of " + Name(type));
        AppendMethods(*WithSlots(Referenced(type, base)), methods);
    }
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
        FUNCDESC* function = nullptr;
        Check(type.GetFuncDesc(i, &function), "A method of " + Name(type));
        const auto release = [&type](FUNCDESC* description) { type.ReleaseFuncDesc(description); };
        const std::unique_ptr<FUNCDESC, decltype(release)> owner(function, release);
        InterfaceMethod method;
        method.slot = function->oVft / static_cast<int>(sizeof(void*));
        method.result = TypeName(type, function->elemdescFunc.tdesc);
        method.name = Name(type, function->memid);
        for (int parameter = 0; parameter < function->cParams; ++parameter)
            method.parameters.push_back(TypeName(type, function->lprgelemdescParam[parameter].tdesc));
        methods.push_back(method);
    }
}

std::string IdentifierText(const GUID& identifier) {
    wchar_t text[40] = L"";
    StringFromGUID2(identifier, text, 40);
    return Utf8(text);
}

// Parses "slot result name(types)". Returns false for any other line.
bool ReadMethod(const std::string& line, InterfaceMethod& method) {
    const size_t open = line.find('('), end = line.rfind(')');
    const size_t name = line.rfind(' ', open) + 1, result = line.find_first_not_of("0123456789 ");
    if (open == std::string::npos || end == std::string::npos || result >= name) return false;
    method.slot = std::stoi(line);
    method.result = line.substr(result, name - result - 1);
    method.name = line.substr(name, open - name);
    for (size_t from = open + 1; from < end;) {
        const size_t comma = std::min(line.find(", ", from), end);
        method.parameters.push_back(line.substr(from, comma - from));
        from = comma + 2;
    }
    return true;
}

std::string Parameters(const InterfaceMethod& method) {
    return "(" + Join(method.parameters, ", ") + ")";
}

template <class Row, class Fits>
const Row* Find(const std::vector<Row>& rows, Fits fits) {
    const auto found = std::find_if(rows.begin(), rows.end(), fits);
    return found == rows.end() ? nullptr : &*found;
}

void CompareMethod(const InterfaceMethod& expected, const ComInterface& found, std::vector<std::string>& sentences) {
    const std::string slot = "slot " + std::to_string(expected.slot), before = found.name + ": ";
    const auto* there = Find(found.methods, [&](const auto& method) { return method.slot == expected.slot; });
    if (expected.name.rfind("reservedSlot", 0) == 0) {
        if (!there) sentences.push_back(before + slot + " is missing.");
        return;
    }
    const auto* same = Find(found.methods, [&](const auto& method) { return method.name == expected.name; });
    if (!same) {
        sentences.push_back(before + expected.name + " is missing; " + slot +
                            (there ? " is " + there->name + Parameters(*there) + "." : " is missing too."));
        return;
    }
    if (same->slot != expected.slot)
        sentences.push_back(before + expected.name + " is in slot " + std::to_string(same->slot) + ", not in " + slot +
                            ".");
    if (same->result != expected.result)
        sentences.push_back(before + expected.name + " returns " + same->result + ", not " + expected.result + ".");
    if (same->parameters.size() != expected.parameters.size()) {
        sentences.push_back(before + expected.name + " has the parameters " + Parameters(*same) + ", not " +
                            Parameters(expected) + ".");
        return;
    }
    for (size_t i = 0; i < expected.parameters.size(); ++i)
        if (same->parameters[i] != expected.parameters[i])
            sentences.push_back(before + "parameter " + std::to_string(i + 1) + " of " + expected.name + " is " +
                                same->parameters[i] + ", not " + expected.parameters[i] + ".");
}

}  // namespace

std::vector<ComInterface> ReadTypeLibrary(const std::string& path) {
    ITypeLib* opened = nullptr;
    Check(LoadTypeLibEx(FromUtf8(path).c_str(), REGKIND_NONE, &opened), "The type library of " + path);
    const Owned<ITypeLib> library(opened);
    std::vector<ComInterface> interfaces;
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        ITypeInfo* given = nullptr;
        Check(library->GetTypeInfo(i, &given), "A type of " + path);
        const Owned<ITypeInfo> type = WithSlots(Owned<ITypeInfo>(given));
        const TypeAttributes attributes(*type);
        if (attributes->typekind != TKIND_INTERFACE) continue;
        ComInterface row{Name(*type), IdentifierText(attributes->guid), {}};
        AppendMethods(*type, row.methods);
        interfaces.push_back(row);
    }
    return interfaces;
}

std::vector<ComInterface> ReadListing(const std::string& path) {
    std::ifstream file(std::filesystem::u8path(path));
    if (!file) throw std::runtime_error("The listing " + path + " cannot be read.");
    std::vector<ComInterface> interfaces;
    bool skips = true;
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.empty() || line[0] == '#') continue;
        InterfaceMethod method;
        const size_t identifier = line.find(" {");
        if (line[0] != ' ') {
            skips = identifier == std::string::npos;
            if (!skips) interfaces.push_back({line.substr(0, identifier), line.substr(identifier + 1), {}});
        } else if (!skips) {
            if (!ReadMethod(line, method)) throw std::runtime_error("The listing has the line \"" + line + "\".");
            interfaces.back().methods.push_back(method);
        }
    }
    return interfaces;
}

std::string Listing(const std::vector<ComInterface>& interfaces) {
    std::string text;
    for (const ComInterface& row : interfaces) {
        text += (text.empty() ? "" : "\n") + row.name + " " + row.identifier + "\n";
        for (const InterfaceMethod& method : row.methods) {
            const std::string slot = std::to_string(method.slot);
            text += std::string(slot.size() < 4 ? 4 - slot.size() : 0, ' ') + slot + " " + method.result + " " +
                    method.name + Parameters(method) + "\n";
        }
    }
    return text;
}

std::vector<std::string> Differences(const std::vector<ComInterface>& expected,
                                     const std::vector<ComInterface>& library) {
    std::vector<std::string> sentences;
    for (const ComInterface& row : expected) {
        const auto* found = Find(library, [&](const ComInterface& other) { return other.name == row.name; });
        if (!found) {
            sentences.push_back(row.name + " is missing.");
            continue;
        }
        if (found->identifier != row.identifier)
            sentences.push_back(row.name + " has the identifier " + found->identifier + ", not " + row.identifier +
                                ".");
        for (const InterfaceMethod& method : row.methods)
            CompareMethod(method, *found, sentences);
    }
    return sentences;
}

}  // namespace bench
