#include "SystemRegistry.h"

#include <algorithm>
#include <cwchar>

#include "AcRxClass.h"
#include "ArxCall.h"
#include "ProcessState.h"
#include "Texts.h"

ACRX_DEFINE_MEMBERS(AcEdCommandStack, AcRxObject)

AcRxResourceInstance::AcRxResourceInstance() : m_hInstance(nullptr) {}
AcRxResourceInstance::AcRxResourceInstance(void* hInstance) : m_hInstance(hInstance) {}
const AcRxResourceInstance& AcRxResourceInstance::empty() {
    static const AcRxResourceInstance instance;
    return instance;
}

namespace bench {
namespace {

constexpr const wchar_t* kForeignGroup = L"(other applications)";

// Returns the group's name as first registered; empty if the group does not exist.
std::wstring GroupName(const std::wstring& group) {
    for (const Command& command : TheProcess().commands)
        if (SameName(command.group, group)) return command.group;
    return {};
}

class CommandStack : public AcEdCommandStack {
 public:
    Acad::ErrorStatus addCommand(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName, const ACHAR* cmdLocalName,
                                 Adesk::Int32 commandFlags, AcRxFunctionPtr FunctionAddr, AcEdUIContext*, int fcode,
                                 const AcRxResourceInstance&, AcEdCommand** cmdPtrRet) override {
        ArxCall call("AcEdCommandStack::addCommand", LogText(cmdGroupName) + " " + LogText(cmdGlobalName) + " " +
                                                         LogText(cmdLocalName) + " " + std::to_string(commandFlags));
        if (cmdPtrRet != nullptr) *cmdPtrRet = nullptr;
        if (call.fails()) return call.failed(Acad::eDuplicateKey);
        if (!named(cmdGroupName) || !named(cmdGlobalName) || !named(cmdLocalName) || FunctionAddr == nullptr ||
            fcode != -1)
            return call.done(Acad::eInvalidInput);
        if (find(cmdGroupName, cmdGlobalName) != TheProcess().commands.end()) return call.done(Acad::eDuplicateKey);
        const std::wstring known = GroupName(cmdGroupName);
        if (known.empty()) TrackAcquire("command group", LogText(cmdGroupName));
        const std::wstring group = known.empty() ? cmdGroupName : known;
        TheProcess().commands.push_back(Command{group, cmdGlobalName, cmdLocalName, FunctionAddr, nullptr});
        return call.done(Acad::eOk);
    }

    Acad::ErrorStatus removeGroup(const ACHAR* groupName) override {
        ArxCall call("AcEdCommandStack::removeGroup", LogText(groupName));
        if (groupName == nullptr) return call.done(Acad::eInvalidInput);
        const std::wstring group = GroupName(groupName);
        if (group.empty()) return call.done(Acad::eKeyNotFound);
        auto& commands = TheProcess().commands;
        commands.erase(std::remove_if(commands.begin(), commands.end(),
                                      [&](const Command& command) { return SameName(command.group, group); }),
                       commands.end());
        TrackRelease("command group", Ansi(group));
        return call.fails() ? call.failed(Acad::eKeyNotFound) : call.done(Acad::eOk);
    }

 private:
    static bool named(const ACHAR* name) {
        return name != nullptr && *name != L'\0' && std::wcslen(name) <= ACRX_MAX_CMDNAME_LEN;
    }
    static std::vector<Command>::iterator find(const ACHAR* group, const ACHAR* name) {
        auto& commands = TheProcess().commands;
        return std::find_if(commands.begin(), commands.end(), [&](const Command& command) {
            return SameName(command.group, group) && SameName(command.globalName, name);
        });
    }
};

}  // namespace

AcEdCommandStack* TheCommandStack() {
    static CommandStack stack;
    return &stack;
}

// ---- Commands of other applications ----

void AddForeignCommand(const std::string& name, std::function<void()> run) {
    RemoveForeignCommand(name);
    TheProcess().commands.push_back(Command{kForeignGroup, FromAnsi(name), FromAnsi(name), nullptr, std::move(run)});
}

void RemoveForeignCommand(const std::string& name) {
    auto& commands = TheProcess().commands;
    commands.erase(std::remove_if(commands.begin(), commands.end(),
                                  [&](const Command& command) {
                                      return command.foreign && SameName(command.globalName, FromAnsi(name));
                                  }),
                   commands.end());
}

bool CommandExists(const std::string& group, const std::string& name) {
    for (const Command& command : TheProcess().commands)
        if (SameName(command.group, FromAnsi(group)) && SameName(command.globalName, FromAnsi(name))) return true;
    return false;
}

}  // namespace bench
