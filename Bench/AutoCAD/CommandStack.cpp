// The command stack of the system registry.
#include <algorithm>
#include <cwchar>

#include "HostCall.h"
#include "HostRegistry.h"
#include "HostSession.h"
#include "accmd.h"

namespace bench {
namespace {

// The group's name as it was given when it came into being; empty when there is no such group.
std::wstring GroupName(const std::wstring& group) {
    for (const Command& command : TheSession().commands)
        if (SameName(command.group, group)) return command.group;
    return {};
}

class BenchCommandStack : public AcEdCommandStack {
 public:
    Acad::ErrorStatus addCommand(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName, const ACHAR* cmdLocalName,
                                 Adesk::Int32 commandFlags, AcRxFunctionPtr FunctionAddr, AcEdUIContext*, int fcode,
                                 const AcRxResourceInstance&, AcEdCommand** cmdPtrRet) override {
        HostCall call("AcEdCommandStack::addCommand", Narrow(cmdGroupName) + " " + Narrow(cmdGlobalName) + " " +
                                                          Narrow(cmdLocalName) + " " + std::to_string(commandFlags));
        if (cmdPtrRet != nullptr) *cmdPtrRet = nullptr;
        if (call.fails()) return call.failed(Acad::eDuplicateKey);
        if (!named(cmdGroupName) || !named(cmdGlobalName) || !named(cmdLocalName) || FunctionAddr == nullptr ||
            fcode != -1)
            return call.done(Acad::eInvalidInput);
        if (find(cmdGroupName, cmdGlobalName) != TheSession().commands.end()) return call.done(Acad::eDuplicateKey);
        const std::wstring known = GroupName(cmdGroupName);
        if (known.empty()) Owe("command group", Narrow(cmdGroupName));
        const std::wstring group = known.empty() ? cmdGroupName : known;
        TheSession().commands.push_back(
            Command{group, cmdGlobalName, cmdLocalName, commandFlags, FunctionAddr, nullptr});
        return call.done(Acad::eOk);
    }

    Acad::ErrorStatus removeCmd(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName) override {
        HostCall call("AcEdCommandStack::removeCmd", Narrow(cmdGroupName) + " " + Narrow(cmdGlobalName));
        if (cmdGroupName == nullptr || cmdGlobalName == nullptr) return call.done(Acad::eInvalidInput);
        const auto found = find(cmdGroupName, cmdGlobalName);
        if (found == TheSession().commands.end()) return call.done(Acad::eKeyNotFound);
        const std::wstring group = found->group;
        TheSession().commands.erase(found);
        if (GroupName(group).empty()) Settle("command group", Narrow(group));
        return call.fails() ? call.failed(Acad::eKeyNotFound) : call.done(Acad::eOk);
    }

    Acad::ErrorStatus removeGroup(const ACHAR* groupName) override {
        HostCall call("AcEdCommandStack::removeGroup", Narrow(groupName));
        if (groupName == nullptr) return call.done(Acad::eInvalidInput);
        const std::wstring group = GroupName(groupName);
        if (group.empty()) return call.done(Acad::eKeyNotFound);
        auto& commands = TheSession().commands;
        commands.erase(std::remove_if(commands.begin(), commands.end(),
                                      [&](const Command& command) { return SameName(command.group, group); }),
                       commands.end());
        Settle("command group", Narrow(group));
        return call.fails() ? call.failed(Acad::eKeyNotFound) : call.done(Acad::eOk);
    }

 private:
    static bool named(const ACHAR* name) {
        return name != nullptr && *name != L'\0' && std::wcslen(name) <= ACRX_MAX_CMDNAME_LEN;
    }
    static std::vector<Command>::iterator find(const ACHAR* group, const ACHAR* name) {
        auto& commands = TheSession().commands;
        return std::find_if(commands.begin(), commands.end(), [&](const Command& command) {
            return SameName(command.group, group) && SameName(command.globalName, name);
        });
    }
};

}  // namespace

AcRxObject* CommandStack() {
    static BenchCommandStack stack;
    return &stack;
}

// ---- Commands of other applications ----

namespace {
constexpr const wchar_t* kForeignGroup = L"(other applications)";
}

void AddForeignCommand(const std::string& name, std::function<void()> run) {
    RemoveForeignCommand(name);
    TheSession().commands.push_back(Command{kForeignGroup, Wide(name), Wide(name), 0, nullptr, std::move(run)});
}

void RemoveForeignCommand(const std::string& name) {
    auto& commands = TheSession().commands;
    commands.erase(std::remove_if(commands.begin(), commands.end(),
                                  [&](const Command& command) {
                                      return command.foreign && SameName(command.globalName, Wide(name));
                                  }),
                   commands.end());
}

bool CommandExists(const std::string& group, const std::string& name) {
    for (const Command& command : TheSession().commands)
        if (SameName(command.group, Wide(group)) && SameName(command.globalName, Wide(name))) return true;
    return false;
}

}  // namespace bench
