#include "HostStrings.h"

#include <cstdlib>
#include <cwchar>
#include <map>

#include "HostCall.h"
#include "acestext.h"
#include "acutads.h"
#include "acutmem.h"
#include "adscodes.h"

namespace bench {
namespace {

struct Text {
    std::string name;  // of a text for the module to keep
    int chain = 0;     // or the chain that it goes with
    size_t size = 0;   // bytes
    bool released = false;
};

std::map<void*, Text>& Texts() {
    static std::map<void*, Text> texts;
    return texts;
}

wchar_t* Allocate(const std::wstring& text, const std::string& name, int chain) {
    const size_t size = (text.size() + 1) * sizeof(wchar_t);
    wchar_t* memory = static_cast<wchar_t*>(std::malloc(size));
    if (memory == nullptr) std::abort();
    std::wmemcpy(memory, text.c_str(), text.size() + 1);
    Texts()[memory] = Text{name, chain, size, false};
    return memory;
}

}  // namespace

wchar_t* HandOut(const std::wstring& text, const std::string& name) {
    Owe("string", name);
    return Allocate(text, name, 0);
}

wchar_t* HandOutInChain(const std::wstring& text, int chain) {
    AddChainPart(chain);
    return Allocate(text, "", chain);
}

bool ReleaseString(void* text, const char* by) {
    const auto found = Texts().find(text);
    if (found == Texts().end()) {
        Accuse(std::string(by) + " was called on a text that AutoCAD did not hand out.");
        return false;
    }
    Text& known = found->second;
    if (known.released) {
        Accuse(std::string(by) + " was called on a text that was already released.");
        return false;
    }
    known.released = true;
    for (size_t i = 0; i + 1 < known.size / sizeof(wchar_t); ++i)
        static_cast<wchar_t*>(text)[i] = L'\xDD';
    if (known.chain != 0)
        ReleaseChainPart(known.chain);
    else
        Settle("string", known.name);
    return true;
}

// Called by FreeQuarantine of the chains.
void FreeStrings() {
    for (const auto& [memory, text] : Texts())
        std::free(memory);
    Texts().clear();
}

}  // namespace bench

using bench::HostCall;

Acad::ErrorStatus acutNewString(const ACHAR* pInput, ACHAR*& pOutput) {
    HostCall call("acutNewString", bench::Narrow(pInput));
    if (call.fails()) return call.failed(Acad::eOutOfMemory);
    if (pInput == nullptr) {
        pOutput = nullptr;
        return call.done(Acad::eOk);
    }
    pOutput = bench::HandOut(pInput, "acutNewString " + bench::Narrow(pInput));
    return call.done(Acad::eOk);
}

Acad::ErrorStatus acutNewString(ACHAR*& pOutput, Adesk::Int32 nNumChars) {
    HostCall call("acutNewString", std::to_string(nNumChars) + " characters");
    if (call.fails()) return call.failed(Acad::eOutOfMemory);
    if (nNumChars <= 0 || nNumChars > 512 * 1024 * 1024) return call.done(Acad::eInvalidInput);
    const std::wstring uninitialised(static_cast<size_t>(nNumChars) - 1, L'\xCD');
    pOutput = bench::HandOut(uninitialised, "acutNewString " + std::to_string(nNumChars) + " characters");
    return call.done(Acad::eOk);
}

Acad::ErrorStatus acutUpdString(const ACHAR* pInput, ACHAR*& pOutput) {
    ACHAR* copy = nullptr;
    const Acad::ErrorStatus status = acutNewString(pInput, copy);
    if (status != Acad::eOk) return status;
    acutDelString(pOutput);
    pOutput = copy;
    return status;
}

void acutDelBuffer(void*& pBuffer) {
    HostCall call("acutDelBuffer", "");
    if (pBuffer != nullptr) bench::ReleaseString(pBuffer, "acutDelString");
    pBuffer = nullptr;
}

const ACHAR* acadErrorStatusText(Acad::ErrorStatus es) {
    HostCall call("acadErrorStatusText", std::to_string(static_cast<int>(es)));
    static const std::map<Acad::ErrorStatus, const ACHAR*> texts = {
        {Acad::eOk, L"eOk"},
        {Acad::eInvalidInput, L"eInvalidInput"},
        {Acad::eUnknownHandle, L"eUnknownHandle"},
        {Acad::eNullHandle, L"eNullHandle"},
        {Acad::eNullObjectId, L"eNullObjectId"},
        {Acad::eKeyNotFound, L"eKeyNotFound"},
        {Acad::eDuplicateKey, L"eDuplicateKey"},
        {Acad::eAlreadyInDb, L"eAlreadyInDb"},
        {Acad::eNotOpenForRead, L"eNotOpenForRead"},
        {Acad::eNotOpenForWrite, L"eNotOpenForWrite"},
        {Acad::eNotThatKindOfClass, L"eNotThatKindOfClass"},
        {Acad::eWasErased, L"eWasErased"},
        {Acad::eWasOpenForRead, L"eWasOpenForRead"},
        {Acad::eWasOpenForWrite, L"eWasOpenForWrite"},
        {Acad::eOnLockedLayer, L"eOnLockedLayer"},
        {Acad::eXdataSizeExceeded, L"eXdataSizeExceeded"},
        {Acad::eRegappIdNotFound, L"eRegappIdNotFound"},
        {Acad::eCannotScaleNonUniformly, L"eCannotScaleNonUniformly"},
        {Acad::eNoActiveTransactions, L"eNoActiveTransactions"},
        {Acad::eNoDocument, L"eNoDocument"},
    };
    const auto found = texts.find(es);
    return found == texts.end() ? L"Unknown Error" : found->second;
}
