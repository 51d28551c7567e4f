#include "Application.h"
#include "SystemRegistry.h"

#include <filesystem>

#include "AcRxClass.h"
#include "ArxCall.h"
#include "CommandLine.h"
#include "ProcessState.h"
#include "Texts.h"
#include "acedads.h"
#include "adscodes.h"
#include "rxregsvc.h"

ACRX_DEFINE_MEMBERS(AcRxDynamicLinker, AcRxObject)

namespace bench {
namespace {

namespace fs = std::filesystem;

using EntryPoint = AcRx::AppRetCode (*)(AcRx::AppMsgCode, void*);
using ApiVersion = int (*)();

// The value that acrxGetApiVersion of the API library returns for this release.
constexpr int kApiVersion = 24;

template <class Function>
Function Export(HMODULE module, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

fs::path ProgramFolder() {
    wchar_t path[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return fs::path(path).parent_path();
}

// The support path: the current folder, then the program's folder.
fs::path FindModule(const std::wstring& name) {
    fs::path file = name;
    if (!file.has_extension()) file += L".arx";
    for (const fs::path& folder : {fs::current_path(), ProgramFolder()}) {
        std::error_code ignored;
        if (fs::is_regular_file(folder / file, ignored)) return folder / file;
    }
    return {};
}

Module* FindLoaded(const std::wstring& name) {
    std::wstring file = fs::path(name).filename().wstring();
    if (!fs::path(file).has_extension()) file += L".arx";
    for (const auto& module : TheProcess().modules)
        if (SameName(fs::path(module->path).filename().wstring(), file)) return module.get();
    return nullptr;
}

Module* ById(void* appId, const char* by) {
    for (const auto& module : TheProcess().modules)
        if (module.get() == appId) return module.get();
    ReportViolation(std::string(by) + " was called with an invalid application id.");
    return nullptr;
}

void Send(const Module& module, AcRx::AppMsgCode message) {
    const EntryPoint entry = Export<EntryPoint>(module.handle, "acrxEntryPoint");
    entry(message, const_cast<Module*>(&module));
}

void ReportLeftovers(const Module& module) {
    const std::string name = fs::path(module.path).filename().string();
    auto& commands = TheProcess().commands;
    for (size_t i = commands.size(); i-- > 0;) {
        if (commands[i].function == nullptr ||
            ModuleOf(reinterpret_cast<const void*>(commands[i].function)) != module.handle)
            continue;
        ReportViolation("The module " + name + " was unloaded with its command " + Ansi(commands[i].globalName) +
                        " still registered.");
        commands.erase(commands.begin() + static_cast<std::ptrdiff_t>(i));
    }
    for (const std::wstring& service : ServicesOf(module.handle))
        ReportViolation("The module " + name + " was unloaded with its service " + Ansi(service) +
                        " still registered.");
}

void Discard(Module* module) {
    ReportLeftovers(*module);
    FreeLibrary(module->handle);
    auto& modules = TheProcess().modules;
    for (size_t i = 0; i < modules.size(); ++i)
        if (modules[i].get() == module) {
            modules.erase(modules.begin() + static_cast<std::ptrdiff_t>(i));
            return;
        }
}

void Unload(Module* module) {
    if (TheProcess().current != nullptr) Send(*module, AcRx::kUnloadDwgMsg);
    Send(*module, AcRx::kUnloadAppMsg);
    Discard(module);
}

int Load(const std::wstring& name) {
    const fs::path file = FindModule(name);
    const std::string shown = fs::path(name).filename().string();
    if (file.empty()) {
        PrintText("\n" + shown + " cannot find that file.\n");
        return RTERROR;
    }
    if (FindLoaded(name) != nullptr) {
        PrintText("\n" + shown + " already loaded.\n");
        return RTERROR;
    }
    const HMODULE handle = LoadLibraryExW(file.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (handle == nullptr) {
        PrintText("\n" + shown + " cannot be loaded: error " + std::to_string(GetLastError()) + ".\n");
        return RTERROR;
    }
    const ApiVersion version = Export<ApiVersion>(handle, "acrxGetApiVersion");
    if (version == nullptr || version() != kApiVersion || Export<EntryPoint>(handle, "acrxEntryPoint") == nullptr) {
        PrintText("\n" + shown + " is incompatible with this version of AutoCAD.\n");
        FreeLibrary(handle);
        return RTERROR;
    }
    auto& modules = TheProcess().modules;
    modules.push_back(std::make_unique<Module>(Module{file.wstring(), handle, true}));
    Module* module = modules.back().get();
    if (Export<EntryPoint>(handle, "acrxEntryPoint")(AcRx::kInitAppMsg, module) == AcRx::kRetError) {
        PrintText("\n" + shown + " failed to load.\n");
        Discard(module);
        return RTERROR;
    }
    if (TheProcess().current != nullptr) Send(*module, AcRx::kLoadDwgMsg);
    return RTNORM;
}

class DynamicLinker : public AcRxDynamicLinker {
 public:
    bool registerAppMDIAware(void* appId) const override {
        ArxCall call("AcRxDynamicLinker::registerAppMDIAware", "");
        return !call.fails() && ById(appId, "registerAppMDIAware") != nullptr;
    }
};

}  // namespace

AcRxDynamicLinker* TheDynamicLinker() {
    static DynamicLinker linker;
    return &linker;
}

void SendToModules(AcRx::AppMsgCode message) {
    for (const auto& module : TheProcess().modules)
        Send(*module, message);
}

void UnloadAllModules() {
    while (!TheProcess().modules.empty())
        Unload(TheProcess().modules.back().get());
}

}  // namespace bench

using bench::ArxCall;
using bench::Module;

int acedArxLoad(const ACHAR* app) {
    ArxCall call("acedArxLoad", bench::LogText(app));
    if (call.fails()) return call.failed(RTERROR);
    return call.done(app == nullptr ? RTERROR : bench::Load(app));
}

// Fails for a locked module and for one that is not loaded.
int acedArxUnload(const ACHAR* app) {
    ArxCall call("acedArxUnload", bench::LogText(app));
    if (call.fails()) return call.failed(RTERROR);
    Module* module = app == nullptr ? nullptr : bench::FindLoaded(app);
    if (module == nullptr) return call.done(RTERROR);
    if (module->locked) {
        bench::PrintText("\n" + bench::LogText(app) + " cannot be unloaded.\n");
        return call.done(RTERROR);
    }
    bench::Unload(module);
    return call.done(RTNORM);
}

bool acrxUnlockApplication(void* appId) {
    ArxCall call("acrxUnlockApplication", "");
    Module* module = call.fails() ? nullptr : bench::ById(appId, "acrxUnlockApplication");
    if (module != nullptr) module->locked = false;
    return module != nullptr;
}
