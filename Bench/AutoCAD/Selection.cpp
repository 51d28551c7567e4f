// Selection by the user: acedSSGet and acedEntSel. Picks come from the script's answers or the user; nothing is
// selected for a module that asked in a way that AutoCAD refuses.
#include <algorithm>
#include <cwchar>

#include "HostCall.h"
#include "HostSelectionSets.h"
#include "HostSession.h"
#include "acedads.h"
#include "acutads.h"
#include "adscodes.h"
#include "acdb.h"

namespace bench {
namespace {

struct Request {
    wchar_t method = L'U';  // the user; else I, P, L, A or X
    bool single = false;
    bool ownPrompts = false;
    bool understood = true;
};

// "_:S", ":S:$", "X", "+.:S": a method, then letters after colons.
Request Understand(const ACHAR* options) {
    Request request;
    std::wstring text = UpperCase(options == nullptr ? L"" : options);
    text.erase(std::remove_if(text.begin(), text.end(),
                              [](wchar_t c) { return c == L'_' || c == L'+' || c == L'.' || c == L'-'; }),
               text.end());
    const size_t colon = std::min(text.find(L':'), text.size());
    const std::wstring method = text.substr(0, colon);
    if (method.size() == 1 && std::wcschr(L"IPLAX", method[0]) != nullptr)
        request.method = method[0];
    else
        request.understood = method.empty();
    for (size_t i = colon; i < text.size(); i += 2) {
        const wchar_t letter = i + 1 < text.size() ? text[i + 1] : L'\0';
        if (text[i] != L':' || letter == L'\0' || std::wcschr(L"SDEL$", letter) == nullptr) request.understood = false;
        request.single = request.single || letter == L'S';
        request.ownPrompts = request.ownPrompts || letter == L'$';
    }
    return request;
}

bool Passes(const Record& record, const resbuf* filter) {
    for (const resbuf* node = filter; node != nullptr; node = node->rbnext) {
        if (node->resval.rstring == nullptr) return false;
        const std::wstring wanted = node->resval.rstring;
        const std::wstring dxfName = record.kind == RecordKind::kReference ? L"INSERT" : record.className;
        if (node->restype == AcDb::kDxfStart && wanted != L"*" && !SameName(dxfName, wanted)) return false;
        if (node->restype == 8 && !SameName(record.layer, wanted)) return false;
    }
    return true;
}

std::vector<Handle> InModelSpace(const resbuf* filter) {
    std::vector<Handle> handles;
    const Drawing& drawing = *CurrentDrawing();
    for (Handle handle : drawing.find(Drawing::kModelSpace)->children) {
        const Record* record = drawing.find(handle);
        if (!record->erased && Passes(*record, filter)) handles.push_back(handle);
    }
    return handles;
}

// 0, with an accusation of the script, when there is nothing to pick.
Handle Picked(const Answer& answer) {
    const Handle handle = HandleFromText(Wide(answer.value).c_str());
    const Record* record = CurrentDrawing()->find(handle);
    if (record != nullptr && record->isEntity() && !record->erased) return handle;
    Accuse("The script picked " + answer.value + ", which is no entity of the drawing.");
    return 0;
}

std::vector<Handle> ByWord(const std::wstring& word, const resbuf* filter) {
    std::vector<Handle> all = InModelSpace(filter);
    if (SameName(word, L"ALL")) return all;
    if (SameName(word, L"P") || SameName(word, L"PREVIOUS")) return TheSession().previousSelection;
    if ((SameName(word, L"L") || SameName(word, L"LAST")) && !all.empty()) return {all.back()};
    return {};
}

void Add(std::vector<Handle>& selection, const std::vector<Handle>& more) {
    size_t found = 0;
    for (Handle handle : more)
        if (std::find(selection.begin(), selection.end(), handle) == selection.end()) {
            selection.push_back(handle);
            ++found;
        }
    Print(std::to_string(found) + " found\n");
}

// RTNORM with a selection, RTERROR without one, RTCAN.
int SelectByUser(const std::string& prompt, bool single, const resbuf* filter, std::vector<Handle>& selection) {
    for (;;) {
        const Answer answer = Ask(prompt);
        if (answer.kind == Answer::kEscape) return RTCAN;
        if (answer.kind == Answer::kEnter) break;
        std::vector<Handle> more;
        if (answer.kind == Answer::kPick) {
            const Handle handle = Picked(answer);
            if (handle != 0 && Passes(*CurrentDrawing()->find(handle), filter)) {
                TheSession().lastPick = handle;
                more.push_back(handle);
            }
        } else if (answer.kind == Answer::kText) {
            more = ByWord(Wide(answer.value), filter);
            if (more.empty()) {
                Print("*Invalid selection*\nExpects a point or Window/Last/Crossing/BOX/ALL/Fence/Previous\n");
                continue;
            }
        }
        if (!more.empty() && !single) Add(selection, more);
        if (single) {
            selection = more;
            break;
        }
    }
    return selection.empty() ? RTERROR : RTNORM;
}

int Select(const ACHAR* options, const void* pt1, const resbuf* filter, std::vector<Handle>& selection) {
    const Request request = Understand(options);
    if (!request.understood || CurrentDrawing() == nullptr) return RTREJ;
    if (request.ownPrompts && pt1 == nullptr) {
        Accuse("acedSSGet was to use its caller's own prompts and got none.");
        return RTREJ;
    }
    switch (request.method) {
        case L'A':
        case L'X':
            selection = InModelSpace(filter);
            break;
        case L'P':
            selection = TheSession().previousSelection;
            break;
        case L'L':
            selection = ByWord(L"LAST", filter);
            break;
        case L'I':
            break;  // nothing is ever selected before the command
        default: {
            const ACHAR* const* prompts = static_cast<const ACHAR* const*>(pt1);
            const std::string prompt = request.ownPrompts ? Narrow(prompts[0]) : "\nSelect objects: ";
            return SelectByUser(prompt, request.single, filter, selection);
        }
    }
    return selection.empty() ? RTERROR : RTNORM;
}

std::string Shown(const ACHAR* options, const void* pt1) {
    std::string text = options == nullptr ? "(null)" : Narrow(options);
    if (pt1 != nullptr && Understand(options).ownPrompts) text += " " + Narrow(*static_cast<const ACHAR* const*>(pt1));
    return text;
}

int PickOne(const ACHAR* prompt, ads_name entres, ads_point ptres) {
    const Answer answer = Ask(prompt == nullptr ? "\nSelect object: " : Narrow(prompt));
    if (answer.kind == Answer::kEscape) return RTCAN;
    if (answer.kind == Answer::kText && !KeywordFor(Wide(answer.value)).empty()) return RTKWORD;
    const Handle handle = answer.kind == Answer::kPick ? Picked(answer) : 0;
    if (handle == 0) {
        SetSystemVariable("ERRNO", answer.kind == Answer::kEnter ? "52" : "7");
        return RTERROR;
    }
    TheSession().lastPick = handle;
    EntityName(handle, entres);
    const AcGePoint3d inUcs = CurrentDrawing()->ucs.toWorld().inverse() * CurrentDrawing()->find(handle)->position;
    for (unsigned i = 0; i < 3; ++i)
        ptres[i] = inUcs[i];
    return RTNORM;
}

}  // namespace

std::string LastPick() {
    return TheSession().lastPick == 0 ? "" : HandleText(TheSession().lastPick);
}

}  // namespace bench

using bench::HostCall;

int acedSSGet(const ACHAR* str, const void* pt1, const void*, const struct resbuf* filter, ads_name ss) {
    HostCall call("acedSSGet", bench::Shown(str, pt1));
    if (call.fails()) return call.failed(RTERROR);
    std::vector<bench::Handle> selection;
    int code = bench::Select(str, pt1, filter, selection);
    bench::TheSession().keywords.clear();
    if (code == RTNORM && !bench::HandOutSelection(selection, ss)) code = RTERROR;
    if (code == RTNORM) bench::TheSession().previousSelection = selection;
    return call.done(code);
}

int acedSSGet(const ACHAR* str, const void* pt1, const void* pt2, const struct resbuf* filter, ads_name ss,
              AcSelectionPreview*) {
    return acedSSGet(str, pt1, pt2, filter, ss);
}

int acedEntSel(const ACHAR* str, ads_name entres, ads_point ptres) {
    HostCall call("acedEntSel", bench::Narrow(str == nullptr ? L"" : str));
    if (call.fails()) return call.failed(RTERROR);
    if (bench::CurrentDrawing() == nullptr) return call.done(RTERROR);
    const int code = bench::PickOne(str, entres, ptres);
    bench::TheSession().keywords.clear();
    return call.done(code);
}

int acedEntSel(const ACHAR* str, ads_name entres, ads_point ptres, AcSelectionPreview*) {
    return acedEntSel(str, entres, ptres);
}
