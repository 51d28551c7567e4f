// Selection by the user: acedSSGet, the sets that come of it, and acedEntSel. Picks come from the script's answers or
// the user; nothing is selected for a module that asked in a way that AutoCAD refuses. Only the single pick without a
// filter is imitated: every other request is refused as one that is not understood.
#include <cwchar>
#include <map>

#include "AcDbObjectId.h"
#include "ArxCall.h"
#include "CommandLine.h"
#include "Session.h"
#include "Texts.h"
#include "acedads.h"
#include "adscodes.h"

namespace bench {
namespace {

struct Request {
    bool single = false;
    bool ownPrompts = false;
    bool understood = true;
};

// "_:S", ":S:$": letters after colons.
Request Understand(const ACHAR* options) {
    Request request;
    std::wstring text = options == nullptr ? L"" : UpperCase(options);
    if (!text.empty() && text[0] == L'_') text.erase(0, 1);
    for (size_t i = 0; i < text.size(); i += 2) {
        const wchar_t letter = i + 1 < text.size() ? text[i + 1] : L'\0';
        if (text[i] != L':' || (letter != L'S' && letter != L'$')) request.understood = false;
        request.single = request.single || letter == L'S';
        request.ownPrompts = request.ownPrompts || letter == L'$';
    }
    return request;
}

std::string RequestText(const ACHAR* options, const void* pt1) {
    std::string text = Shown(options);
    if (pt1 != nullptr && Understand(options).ownPrompts) text += " " + Shown(*static_cast<const ACHAR* const*>(pt1));
    return text;
}

// The entity that was picked, 0 for a pick that missed. RTERROR also after Enter, RTCAN after Escape.
int Pick(const Answer& answer, Handle& picked) {
    picked = 0;
    if (answer.kind == Answer::kEscape) return RTCAN;
    if (answer.kind != Answer::kPick) return RTERROR;
    const Handle handle = HandleFromText(FromAnsi(answer.value).c_str());
    const Record* record = CurrentDrawing()->find(handle);
    if (record == nullptr || !record->isEntity() || record->erased) {
        ReportViolation("The script picked " + answer.value + ", which is no entity of the drawing.");
        return RTERROR;
    }
    picked = TheSession().lastPick = handle;
    return RTNORM;
}

int Select(const ACHAR* options, const void* pt1, const resbuf* filter, Handle& picked) {
    const Request request = Understand(options);
    if (!request.understood || !request.single || filter != nullptr || CurrentDrawing() == nullptr) return RTREJ;
    if (request.ownPrompts && pt1 == nullptr) {
        ReportViolation("acedSSGet was to use its caller's own prompts and got none.");
        return RTREJ;
    }
    const std::string prompt =
        request.ownPrompts ? Shown(*static_cast<const ACHAR* const*>(pt1)) : "\nSelect objects: ";
    for (;;) {
        const Answer answer = Ask(prompt);
        if (answer.kind != Answer::kText) return Pick(answer, picked);
        Print("*Invalid selection*\nExpects a point\n");
    }
}

// ---- Sets ----

struct SelectionSet {
    Handle entity;
    bool freed = false;
};

constexpr size_t kMaxOpen = 128;
// Names of sets start where no address of an object can be.
constexpr int64_t kFirstName = 0x5E1EC70000000000;

std::map<int64_t, SelectionSet> sets;

std::string SetText(const ads_name name) {
    return sets.count(name[0]) == 0 ? "(none)" : std::to_string(name[0] - kFirstName);
}

// False when as many sets are open as AutoCAD has. The balance owes the set until acedSSFree.
bool HandOutSet(Handle entity, ads_name set) {
    size_t open = 0;
    for (const auto& [name, known] : sets)
        open += known.freed ? 0 : 1;
    if (open >= kMaxOpen) return false;
    set[0] = kFirstName + static_cast<int64_t>(sets.size()) + 1;
    set[1] = 0;
    sets[set[0]].entity = entity;
    TrackAcquire("selection set", SetText(set));
    return true;
}

// Null, with an accusation, for a name that is no set's or a set's that was given back.
SelectionSet* FindSet(const ads_name name, const char* by) {
    const auto found = sets.find(name[0]);
    if (found == sets.end()) {
        ReportViolation(std::string(by) + " was called with a name that is no selection set.");
        return nullptr;
    }
    if (!found->second.freed) return &found->second;
    ReportViolation(std::string(by) + " was called on selection set " + SetText(name) +
                    ", which was already released.");
    return nullptr;
}

}  // namespace

std::string LastPick() {
    return TheSession().lastPick == 0 ? "" : HandleText(TheSession().lastPick);
}

}  // namespace bench

using bench::ArxCall;

int acedSSGet(const ACHAR* str, const void* pt1, const void*, const struct resbuf* filter, ads_name ss) {
    ArxCall call("acedSSGet", bench::RequestText(str, pt1));
    if (call.fails()) return call.failed(RTERROR);
    bench::Handle picked = 0;
    int code = bench::Select(str, pt1, filter, picked);
    if (code == RTNORM && !bench::HandOutSet(picked, ss)) code = RTERROR;
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
    bench::NameEntity(bench::IdOf(bench::TheSession().current, set->entity), entres);
    return call.done(RTNORM);
}

// Where the user pointed no script says: ptres stays as it was.
int acedEntSel(const ACHAR* str, ads_name entres, ads_point) {
    ArxCall call("acedEntSel", bench::Shown(str));
    if (call.fails()) return call.failed(RTERROR);
    if (bench::CurrentDrawing() == nullptr) return call.done(RTERROR);
    const bench::Answer answer = bench::Ask(bench::Shown(str));
    bench::Handle picked = 0;
    const int code = bench::Pick(answer, picked);
    if (code == RTNORM) bench::NameEntity(bench::IdOf(bench::TheSession().current, picked), entres);
    if (code == RTERROR) bench::SetSystemVariable("ERRNO", answer.kind == bench::Answer::kEnter ? "52" : "7");
    return call.done(code);
}
