// Selection by the user: acedSSGet, selection sets and acedEntSel. Picks come from the script or the user. Only a
// single pick without a filter is imitated; every other request is rejected as not supported.
#include <cwchar>
#include <map>

#include "AcDbObjectId.h"
#include "ArxCall.h"
#include "CommandLine.h"
#include "ProcessState.h"
#include "Texts.h"
#include "acedads.h"
#include "adscodes.h"

namespace bench {
namespace {

// The options for a single pick, with own prompts (":$") or without.
struct Request {
    bool understood;
    bool ownPrompts;
};

Request Understand(const ACHAR* options) {
    std::wstring text = options == nullptr ? L"" : UpperCase(options);
    if (!text.empty() && text[0] == L'_') text.erase(0, 1);
    const bool ownPrompts = text == L":S:$" || text == L":$:S";
    return {ownPrompts || text == L":S", ownPrompts};
}

std::string RequestText(const ACHAR* options, const void* pt1) {
    std::string text = LogText(options);
    if (pt1 != nullptr && Understand(options).ownPrompts) text += " " + LogText(*static_cast<const ACHAR* const*>(pt1));
    return text;
}

// Returns the picked entity, or 0 for a pick that missed. Returns RTERROR also after Enter, RTCAN after Escape.
int Pick(const Answer& answer, Handle& picked) {
    picked = 0;
    if (answer.kind == Answer::kEscape) return RTCAN;
    if (answer.kind != Answer::kPick) return RTERROR;
    const Handle handle = HandleFromText(FromAnsi(answer.value).c_str());
    const Record* record = CurrentDrawing()->find(handle);
    if (record == nullptr || !record->isEntity() || record->erased) {
        ReportViolation("The script picked " + answer.value + ", which is not an entity of the drawing.");
        return RTERROR;
    }
    picked = TheProcess().lastPick = handle;
    return RTNORM;
}

int Select(const ACHAR* options, const void* pt1, const resbuf* filter, Handle& picked) {
    const Request request = Understand(options);
    if (!request.understood || filter != nullptr || CurrentDrawing() == nullptr) return RTREJ;
    if (request.ownPrompts && pt1 == nullptr) {
        ReportViolation("acedSSGet was called with :$ but without prompts.");
        return RTREJ;
    }
    const std::string prompt =
        request.ownPrompts ? LogText(*static_cast<const ACHAR* const*>(pt1)) : "\nSelect objects: ";
    for (;;) {
        const Answer answer = Ask(prompt);
        if (answer.kind != Answer::kText) return Pick(answer, picked);
        PrintText("*Invalid selection*\nExpects a point\n");
    }
}

// ---- Sets ----

struct SelectionSet {
    Handle entity;
    bool freed = false;
};

// Set names start where no object address can be.
constexpr int64_t kFirstName = 0x5E1EC70000000000;

std::map<int64_t, SelectionSet> sets;

std::string SetText(const ads_name name) {
    return sets.count(name[0]) == 0 ? "(none)" : std::to_string(name[0] - kFirstName);
}

// The set is tracked until acedSSFree.
void AllocateSet(Handle entity, ads_name set) {
    set[0] = kFirstName + static_cast<int64_t>(sets.size()) + 1;
    set[1] = 0;
    sets[set[0]].entity = entity;
    TrackAcquire("selection set", SetText(set));
}

// Returns null and reports a violation for an unknown name or a released set.
SelectionSet* FindSet(const ads_name name, const char* by) {
    const auto found = sets.find(name[0]);
    if (found == sets.end()) {
        ReportViolation(std::string(by) + " was called with a name that is not a selection set.");
        return nullptr;
    }
    if (!found->second.freed) return &found->second;
    ReportViolation(std::string(by) + " was called on selection set " + SetText(name) +
                    ", which was already released.");
    return nullptr;
}

}  // namespace

std::string LastPick() {
    return TheProcess().lastPick == 0 ? "" : HandleText(TheProcess().lastPick);
}

}  // namespace bench

using bench::ArxCall;

int acedSSGet(const ACHAR* str, const void* pt1, const void*, const struct resbuf* filter, ads_name ss) {
    ArxCall call("acedSSGet", bench::RequestText(str, pt1));
    if (call.fails()) return call.failed(RTERROR);
    bench::Handle picked = 0;
    const int code = bench::Select(str, pt1, filter, picked);
    if (code == RTNORM) bench::AllocateSet(picked, ss);
    return call.done(code);
}

int acedSSFree(const ads_name sname) {
    ArxCall call("acedSSFree", bench::SetText(sname));
    bench::SelectionSet* set = bench::FindSet(sname, "acedSSFree");
    if (set == nullptr) return call.done(RTERROR);
    set->freed = true;
    bench::TrackRelease("selection set", bench::SetText(sname));
    return call.fails() ? call.failed(RTERROR) : call.done(RTNORM);
}

int acedSSName(const ads_name ss, int i, ads_name entres) {
    ArxCall call("acedSSName", bench::SetText(ss) + " " + std::to_string(i));
    if (call.fails()) return call.failed(RTERROR);
    const bench::SelectionSet* set = bench::FindSet(ss, "acedSSName");
    if (set == nullptr || i != 0) return call.done(RTERROR);
    bench::NameEntity(bench::IdOf(bench::TheProcess().current, set->entity), entres);
    return call.done(RTNORM);
}

// A script has no pick point, so ptres stays unchanged.
int acedEntSel(const ACHAR* str, ads_name entres, ads_point) {
    ArxCall call("acedEntSel", bench::LogText(str));
    if (call.fails()) return call.failed(RTERROR);
    if (bench::CurrentDrawing() == nullptr) return call.done(RTERROR);
    const bench::Answer answer = bench::Ask(bench::LogText(str));
    bench::Handle picked = 0;
    const int code = bench::Pick(answer, picked);
    if (code == RTNORM) bench::NameEntity(bench::IdOf(bench::TheProcess().current, picked), entres);
    if (code == RTERROR) bench::SetSystemVariable("ERRNO", answer.kind == bench::Answer::kEnter ? "52" : "7");
    return call.done(code);
}
