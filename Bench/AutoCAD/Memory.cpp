#include "Memory.h"

#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <map>

#include "ArxCall.h"
#include "Texts.h"
#include "acdb.h"
#include "acutads.h"
#include "acutmem.h"
#include "adscodes.h"

namespace bench {
namespace {

struct Text {
    std::string name;  // of a string that the module must release
    int chain = 0;     // or the chain that it belongs to
    bool released = false;
};

struct Chain {
    std::string name;
    int parts = 0;
};

struct Node {
    int chain;
    bool released;
};

std::map<void*, Text> texts;
std::map<int, Chain> chains;
std::map<const resbuf*, Node> nodes;
int lastChain = 0;

wchar_t* Allocate(const std::wstring& text, const std::string& name, int chain) {
    wchar_t* memory = static_cast<wchar_t*>(std::calloc(text.size() + 1, sizeof(wchar_t)));
    if (memory == nullptr) std::abort();
    text.copy(memory, text.size());
    texts[memory] = Text{name, chain, false};
    return memory;
}

void ReleaseChainPart(int chain) {
    Chain& known = chains[chain];
    if (--known.parts == 0) TrackRelease("resbuf chain", known.name);
}

// Reports a violation when AutoCAD did not allocate the string or it was already released.
void ReleaseString(void* text, const char* by) {
    const auto found = texts.find(text);
    if (found == texts.end()) {
        ReportViolation(std::string(by) + " was called on a string that AutoCAD did not allocate.");
        return;
    }
    Text& known = found->second;
    if (known.released) {
        ReportViolation(std::string(by) + " was called on a string that was already released.");
        return;
    }
    known.released = true;
    for (wchar_t* c = static_cast<wchar_t*>(text); *c != L'\0'; ++c)
        *c = L'\xDD';
    if (known.chain != 0)
        ReleaseChainPart(known.chain);
    else
        TrackRelease("string", known.name);
}

// Releases the node and advances to the next. Returns false and reports a violation when AutoCAD did not allocate it or
// it was already released.
bool ReleaseNode(resbuf*& node, const char* by) {
    const auto found = nodes.find(node);
    if (found == nodes.end()) {
        ReportViolation(std::string(by) + " was called on a result buffer that AutoCAD did not allocate.");
        return false;
    }
    if (!CheckNode(node, by)) return false;
    // The string pointer stays and refers to released memory.
    if (IsStringType(node->restype) && node->resval.rstring != nullptr) ReleaseString(node->resval.rstring, by);
    node = node->rbnext;
    found->second.released = true;
    ReleaseChainPart(found->second.chain);
    return true;
}

// Takes one value of the type from the arguments. Returns false for an unknown type.
bool FillNode(resbuf* node, int chain, va_list& arguments) {
    if (IsStringType(node->restype)) {
        const wchar_t* text = va_arg(arguments, const wchar_t*);
        node->resval.rstring = AllocateInChain(text == nullptr ? L"" : text, chain);
        return true;
    }
    if (node->restype != RTSHORT && node->restype != AcDb::kDxfXdInteger16) return false;
    node->resval.rint = static_cast<short>(va_arg(arguments, int));
    return true;
}

}  // namespace

wchar_t* AllocateForCaller(const std::wstring& text, const std::string& name) {
    TrackAcquire("string", name);
    return Allocate(text, name, 0);
}

wchar_t* AllocateInChain(const std::wstring& text, int chain) {
    ++chains[chain].parts;
    return Allocate(text, "", chain);
}

int BeginChain(const std::string& name) {
    chains[++lastChain] = Chain{name, 0};
    TrackAcquire("resbuf chain", name);
    return lastChain;
}

resbuf* AddNode(int chain, resbuf* last, short type) {
    resbuf* node = static_cast<resbuf*>(std::malloc(sizeof(resbuf)));
    if (node == nullptr) std::abort();
    std::memset(node, kSentinel, sizeof *node);
    node->rbnext = nullptr;
    node->restype = type;
    nodes[node] = Node{chain, false};
    ++chains[chain].parts;
    if (last != nullptr) last->rbnext = node;
    return node;
}

bool CheckNode(const resbuf* node, const char* by) {
    const auto found = nodes.find(node);
    if (found == nodes.end() || !found->second.released) return true;
    ReportViolation(std::string(by) + " was called on a result buffer that was already released.");
    return false;
}

bool IsStringType(short type) {
    return type == RTSTR || (type >= 1000 && type <= 1003) || type == 1005;
}

void FreeMemory() {
    for (const auto& [node, known] : nodes)
        std::free(const_cast<resbuf*>(node));
    for (const auto& [memory, text] : texts)
        std::free(memory);
    nodes.clear();
    chains.clear();
    texts.clear();
}

}  // namespace bench

using bench::ArxCall;

Acad::ErrorStatus acutUpdString(const ACHAR* pInput, ACHAR*& pOutput) {
    ArxCall call("acutUpdString", bench::LogText(pInput));
    if (call.fails()) return call.failed(Acad::eOutOfMemory);
    ACHAR* const old = pOutput;
    pOutput = pInput == nullptr ? nullptr : bench::AllocateForCaller(pInput, "acutUpdString " + bench::LogText(pInput));
    if (old != nullptr) bench::ReleaseString(old, "acutUpdString");
    return call.done(Acad::eOk);
}

void acutDelBuffer(void*& pBuffer) {
    ArxCall call("acutDelBuffer", "");
    if (pBuffer != nullptr) bench::ReleaseString(pBuffer, "acutDelString");
    pBuffer = nullptr;
}

struct resbuf* acutNewRb(int v) {
    ArxCall call("acutNewRb", std::to_string(v));
    if (call.fails()) return nullptr;
    // AutoCAD guarantees only the type.
    resbuf* const node =
        bench::AddNode(bench::BeginChain("acutNewRb " + std::to_string(v)), nullptr, static_cast<short>(v));
    std::memset(&node->rbnext, bench::kSentinel, sizeof node->rbnext);
    return node;
}

struct resbuf* acutBuildList(int rtype, ...) {
    ArxCall call("acutBuildList", std::to_string(rtype));
    if (call.fails() || rtype == RTNONE || rtype == 0) return nullptr;
    const int chain = bench::BeginChain("acutBuildList " + std::to_string(rtype));
    resbuf* head = nullptr;
    resbuf* last = nullptr;
    bool good = true;
    va_list arguments;
    va_start(arguments, rtype);
    for (int type = rtype; good && type != RTNONE && type != 0; type = va_arg(arguments, int)) {
        last = bench::AddNode(chain, last, static_cast<short>(type));
        if (head == nullptr) head = last;
        good = bench::FillNode(last, chain, arguments);
    }
    va_end(arguments);
    if (good) return head;
    bench::UnrecordedScope quiet;
    acutRelRb(head);
    return nullptr;
}

int acutRelRb(struct resbuf* rb) {
    ArxCall call("acutRelRb", rb == nullptr ? "(null)" : std::to_string(rb->restype));
    if (rb == nullptr) return call.done(RTERROR);
    int result = RTNORM;
    while (rb != nullptr && result == RTNORM)
        if (!bench::ReleaseNode(rb, "acutRelRb")) result = RTERROR;
    return call.fails() ? call.failed(RTERROR) : call.done(result);
}
