// acutNewRb, acutBuildList and acutRelRb.
#include <cstdarg>
#include <cstring>

#include "ArxCall.h"
#include "Memory.h"
#include "acdb.h"
#include "acutads.h"
#include "adscodes.h"

using bench::ArxCall;

namespace {

// Takes one value of the type from the arguments. Returns false for an unknown type.
bool FillNode(resbuf* node, int chain, va_list& arguments) {
    if (bench::IsStringType(node->restype)) {
        const wchar_t* text = va_arg(arguments, const wchar_t*);
        node->resval.rstring = bench::AllocateInChain(text == nullptr ? L"" : text, chain);
        return true;
    }
    if (node->restype != RTSHORT && node->restype != AcDb::kDxfXdInteger16) return false;
    node->resval.rint = static_cast<short>(va_arg(arguments, int));
    return true;
}

}  // namespace

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
        good = FillNode(last, chain, arguments);
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
