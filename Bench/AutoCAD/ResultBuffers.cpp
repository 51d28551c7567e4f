// acutNewRb, acutBuildList, acutRelRb, and the account of their chains. Every node and every text that was put into a
// chain by the host counts as a part of it; the chain stays owed until all of them are released, so that a node left
// out and a text overwritten are found.
#include <cstdarg>
#include <cstdlib>
#include <map>

#include "HostCall.h"
#include "HostStrings.h"
#include "acutads.h"
#include "adscodes.h"
#include "acdb.h"

namespace bench {

void FreeStrings();

namespace {

struct Chain {
    std::string name;
    int parts = 0;
};

struct Node {
    int chain;
    bool released;
};

std::map<int, Chain>& Chains() {
    static std::map<int, Chain> chains;
    return chains;
}

std::map<const resbuf*, Node>& Nodes() {
    static std::map<const resbuf*, Node> nodes;
    return nodes;
}

int lastChain = 0;

}  // namespace

int BeginChain(const std::string& name) {
    Chains()[++lastChain] = Chain{name, 0};
    Owe("resbuf chain", name);
    return lastChain;
}

resbuf* AddNode(int chain, resbuf* last, short type) {
    resbuf* node = static_cast<resbuf*>(std::calloc(1, sizeof(resbuf)));
    if (node == nullptr) std::abort();
    node->restype = type;
    Nodes()[node] = Node{chain, false};
    ++Chains()[chain].parts;
    if (last != nullptr) last->rbnext = node;
    return node;
}

void AddChainPart(int chain) {
    ++Chains()[chain].parts;
}

void ReleaseChainPart(int chain) {
    Chain& known = Chains()[chain];
    if (--known.parts == 0) Settle("resbuf chain", known.name);
}

bool LivingNode(const resbuf* node, const char* by) {
    const auto found = Nodes().find(node);
    if (found == Nodes().end()) return true;  // the caller's own buffer, which is good where nothing is released
    if (!found->second.released) return true;
    Accuse(std::string(by) + " was called on a result buffer that was already released.");
    return false;
}

void FreeQuarantine() {
    for (const auto& [node, known] : Nodes())
        std::free(const_cast<resbuf*>(node));
    Nodes().clear();
    Chains().clear();
    FreeStrings();
}

namespace {

bool HoldsText(short type) {
    return type == RTSTR || type == 0 || type == 1 || type == 2 || type == 8 || type == AcDb::kDxfXdAsciiString ||
           type == AcDb::kDxfRegAppName || type == AcDb::kDxfXdControlString || type == AcDb::kDxfXdLayerName ||
           type == AcDb::kDxfXdHandle;
}

bool HoldsPoint(short type) {
    return type == RT3DPOINT || type == RTPOINT || (type >= 1010 && type <= 1033);
}

bool HoldsReal(short type) {
    return type == RTREAL || type == RTANG || type == RTORINT || (type >= 1040 && type <= 1042);
}

bool HoldsNothing(short type) {
    return type == RTVOID || type == RTLB || type == RTLE || type == RTDOTE || type == RTNIL || type == RTT;
}

// Takes one value of the type off the arguments; false for a type that does not exist.
bool FillNode(resbuf* node, int chain, va_list& arguments) {
    const short type = node->restype;
    if (HoldsText(type)) {
        const wchar_t* text = va_arg(arguments, const wchar_t*);
        node->resval.rstring = HandOutInChain(text == nullptr ? L"" : text, chain);
    } else if (HoldsPoint(type)) {
        const double* point = va_arg(arguments, const double*);
        for (int i = 0; i < (type == RTPOINT ? 2 : 3); ++i)
            node->resval.rpoint[i] = point[i];
    } else if (HoldsReal(type)) {
        node->resval.rreal = va_arg(arguments, double);
    } else if (type == RTSHORT || type == AcDb::kDxfXdInteger16) {
        node->resval.rint = static_cast<short>(va_arg(arguments, int));
    } else if (type == RTLONG || type == AcDb::kDxfXdInteger32) {
        node->resval.rlong = va_arg(arguments, int);
    } else if (type == RTENAME || type == RTPICKS) {
        const int64_t* name = va_arg(arguments, const int64_t*);
        node->resval.rlname[0] = name[0];
        node->resval.rlname[1] = name[1];
    } else {
        return HoldsNothing(type);
    }
    return true;
}

// A list of one that ends at once still needs an end mark: 0 and RTNONE both are, but a first value may be 0.
bool EndsList(int type, bool first) {
    return type == RTNONE || (type == 0 && !first);
}

}  // namespace
}  // namespace bench

using bench::HostCall;

struct resbuf* acutNewRb(int v) {
    HostCall call("acutNewRb", std::to_string(v));
    if (call.fails()) return nullptr;
    return bench::AddNode(bench::BeginChain("acutNewRb " + std::to_string(v)), nullptr, static_cast<short>(v));
}

struct resbuf* acutBuildList(int rtype, ...) {
    HostCall call("acutBuildList", std::to_string(rtype));
    if (call.fails() || rtype == RTNONE) return nullptr;
    const int chain = bench::BeginChain("acutBuildList " + std::to_string(rtype));
    resbuf* head = nullptr;
    resbuf* last = nullptr;
    bool good = true;
    va_list arguments;
    va_start(arguments, rtype);
    for (int type = rtype; good && !bench::EndsList(type, head == nullptr); type = va_arg(arguments, int)) {
        last = bench::AddNode(chain, last, static_cast<short>(type));
        if (head == nullptr) head = last;
        good = bench::FillNode(last, chain, arguments);
    }
    va_end(arguments);
    if (good) return head;
    bench::Quiet quiet;
    acutRelRb(head);
    return nullptr;
}

int acutRelRb(struct resbuf* rb) {
    HostCall call("acutRelRb", rb == nullptr ? "(null)" : std::to_string(rb->restype));
    if (rb == nullptr) return call.done(RTERROR);
    int result = RTNORM;
    while (rb != nullptr) {
        const auto found = bench::Nodes().find(rb);
        if (found == bench::Nodes().end()) {
            bench::Accuse("acutRelRb was called on a result buffer that AutoCAD did not make.");
            result = RTERROR;
            break;
        }
        if (!bench::LivingNode(rb, "acutRelRb")) {
            result = RTERROR;
            break;
        }
        if (bench::HoldsText(rb->restype) && rb->resval.rstring != nullptr)
            bench::ReleaseString(rb->resval.rstring, "acutRelRb");
        // The text's pointer stays: it points at the pattern of released memory.
        resbuf* next = rb->rbnext;
        found->second.released = true;
        bench::ReleaseChainPart(found->second.chain);
        rb = next;
    }
    return call.fails() ? call.failed(RTERROR) : call.done(result);
}
