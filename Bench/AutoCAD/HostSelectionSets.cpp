#include "HostSelectionSets.h"

#include <map>

#include "HostCall.h"
#include "HostObjects.h"
#include "HostSession.h"
#include "acedads.h"
#include "adscodes.h"

namespace bench {
namespace {

struct SelectionSet {
    std::vector<Handle> handles;
    bool freed = false;
};

constexpr size_t kMostOpen = 128;
// Names of sets start where no address of an object can be.
constexpr int64_t kFirstName = 0x5E1EC70000000000;

std::map<int64_t, SelectionSet>& Sets() {
    static std::map<int64_t, SelectionSet> sets;
    return sets;
}

std::string SetText(const ads_name name) {
    return Sets().count(name[0]) == 0 ? "(none)" : std::to_string(name[0] - kFirstName);
}

// Null, with an accusation, for a name that is no set's or a set's that was given back.
SelectionSet* Find(const ads_name name, const char* by) {
    const auto found = Sets().find(name[0]);
    if (found == Sets().end()) {
        Accuse(std::string(by) + " was called with a name that is no selection set.");
        return nullptr;
    }
    if (!found->second.freed) return &found->second;
    Accuse(std::string(by) + " was called on selection set " + SetText(name) + ", which was already released.");
    return nullptr;
}

}  // namespace

bool HandOutSelection(const std::vector<Handle>& handles, ads_name set) {
    size_t open = 0;
    for (const auto& [name, known] : Sets())
        open += known.freed ? 0 : 1;
    if (open >= kMostOpen) return false;
    set[0] = kFirstName + static_cast<int64_t>(Sets().size()) + 1;
    set[1] = 0;
    Sets()[set[0]].handles = handles;
    Owe("selection set", SetText(set));
    return true;
}

void EntityName(Handle handle, ads_name name) {
    name[0] = TheSession().current->id(handle).asOldId();
    name[1] = 0;
}

}  // namespace bench

using bench::HostCall;
using bench::SelectionSet;

int acedSSFree(const ads_name sname) {
    HostCall call("acedSSFree", bench::SetText(sname));
    SelectionSet* set = bench::Find(sname, "acedSSFree");
    if (set == nullptr) return call.done(RTERROR);
    set->freed = true;
    bench::Settle("selection set", bench::SetText(sname));
    return call.fails() ? call.failed(RTERROR) : call.done(RTNORM);
}

int acedSSLength(const ads_name sname, Adesk::Int32* len) {
    HostCall call("acedSSLength", bench::SetText(sname));
    if (call.fails()) return call.failed(RTERROR);
    const SelectionSet* set = bench::Find(sname, "acedSSLength");
    if (set == nullptr || len == nullptr) return call.done(RTERROR);
    *len = static_cast<Adesk::Int32>(set->handles.size());
    return call.done(RTNORM);
}

int acedSSName(const ads_name ss, int i, ads_name entres) {
    HostCall call("acedSSName", bench::SetText(ss) + " " + std::to_string(i));
    if (call.fails()) return call.failed(RTERROR);
    const SelectionSet* set = bench::Find(ss, "acedSSName");
    if (set == nullptr || i < 0 || static_cast<size_t>(i) >= set->handles.size()) return call.done(RTERROR);
    bench::EntityName(set->handles[static_cast<size_t>(i)], entres);
    return call.done(RTNORM);
}
