// Loading and unloading of ObjectARX modules. The application id that a module gets is the address of its record here.
#include <filesystem>

#include "HostCall.h"
#include "HostRegistry.h"
#include "HostSession.h"
#include "acedads.h"
#include "adscodes.h"
#include "rxdefs.h"
#include "rxdlinkr.h"
#include "rxregsvc.h"

namespace bench {
namespace {

namespace fs = std::filesystem;

using EntryPoint = AcRx::AppRetCode (*)(AcRx::AppMsgCode, void*);
using ApiVersion = int (*)();

// What acrxGetApiVersion of the API library answers for this release.
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

// The support path: the current folder, then the program's own.
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
    for (const auto& module : TheSession().modules)
        if (SameName(fs::path(module->path).filename().wstring(), file)) return module.get();
    return nullptr;
}

Module* ById(void* appId, const char* by) {
    for (const auto& module : TheSession().modules)
        if (module.get() == appId) return module.get();
    Accuse(std::string(by) + " was called with something that is no application id.");
    return nullptr;
}

void Send(const Module& module, int message) {
    const EntryPoint entry = Export<EntryPoint>(module.handle, "acrxEntryPoint");
    entry(static_cast<AcRx::AppMsgCode>(message), const_cast<Module*>(&module));
}

void AccuseOfLeftovers(const Module& module) {
    const std::string name = fs::path(module.path).filename().string();
    auto& commands = TheSession().commands;
    for (size_t i = commands.size(); i-- > 0;) {
        if (commands[i].function == nullptr ||
            ModuleOf(reinterpret_cast<const void*>(commands[i].function)) != module.handle)
            continue;
        Accuse("The module " + name + " was unloaded with its command " + Narrow(commands[i].globalName) +
               " still registered.");
        commands.erase(commands.begin() + static_cast<std::ptrdiff_t>(i));
    }
    for (const std::wstring& service : ServicesOf(module.handle))
        Accuse("The module " + name + " was unloaded with its service " + Narrow(service) + " still registered.");
}

void Discard(Module* module) {
    AccuseOfLeftovers(*module);
    FreeLibrary(module->handle);
    auto& modules = TheSession().modules;
    for (size_t i = 0; i < modules.size(); ++i)
        if (modules[i].get() == module) {
            modules.erase(modules.begin() + static_cast<std::ptrdiff_t>(i));
            return;
        }
}

void Unload(Module* module) {
    if (TheSession().current != nullptr) Send(*module, AcRx::kUnloadDwgMsg);
    Send(*module, AcRx::kUnloadAppMsg);
    Discard(module);
}

int Load(const std::wstring& name) {
    const fs::path file = FindModule(name);
    const std::string shown = fs::path(name).filename().string();
    if (file.empty()) {
        Print("\n" + shown + " cannot find that file.\n");
        return RTERROR;
    }
    if (FindLoaded(name) != nullptr) {
        Print("\n" + shown + " already loaded.\n");
        return RTERROR;
    }
    const HMODULE handle = LoadLibraryExW(file.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (handle == nullptr) {
        Print("\n" + shown + " cannot be loaded: error " + std::to_string(GetLastError()) + ".\n");
        return RTERROR;
    }
    const ApiVersion version = Export<ApiVersion>(handle, "acrxGetApiVersion");
    if (version == nullptr || version() != kApiVersion || Export<EntryPoint>(handle, "acrxEntryPoint") == nullptr) {
        Print("\n" + shown + " is incompatible with this version of AutoCAD.\n");
        FreeLibrary(handle);
        return RTERROR;
    }
    auto& modules = TheSession().modules;
    modules.push_back(std::make_unique<Module>(Module{file.wstring(), handle, true, false}));
    Module* module = modules.back().get();
    if (Export<EntryPoint>(handle, "acrxEntryPoint")(AcRx::kInitAppMsg, module) == AcRx::kRetError) {
        Print("\n" + shown + " failed to load.\n");
        Discard(module);
        return RTERROR;
    }
    if (TheSession().current != nullptr) Send(*module, AcRx::kLoadDwgMsg);
    return RTNORM;
}

class BenchDynamicLinker : public AcRxDynamicLinker {
 public:
    bool loadModule(const ACHAR* fileName, bool, bool) override { return acedArxLoad(fileName) == RTNORM; }
    bool unloadModule(const ACHAR* fileName, bool) override { return acedArxUnload(fileName) == RTNORM; }
    bool unlockApplication(void* appId) const override { return acrxUnlockApplication(appId); }
    bool lockApplication(void* appId) const override { return acrxLockApplication(appId); }
    bool isApplicationLocked(const ACHAR* name) const override {
        HostCall call("AcRxDynamicLinker::isApplicationLocked", Narrow(name));
        const Module* module = name == nullptr ? nullptr : FindLoaded(name);
        return module != nullptr && module->locked;
    }
    bool registerAppMDIAware(void* appId) const override {
        HostCall call("AcRxDynamicLinker::registerAppMDIAware", "");
        Module* module = call.fails() ? nullptr : ById(appId, "registerAppMDIAware");
        if (module != nullptr) module->mdiAware = true;
        return module != nullptr;
    }
};

}  // namespace

AcRxObject* DynamicLinker() {
    static BenchDynamicLinker linker;
    return &linker;
}

void SendToModules(int message) {
    for (const auto& module : TheSession().modules)
        Send(*module, message);
}

void UnloadAllModules() {
    while (!TheSession().modules.empty())
        Unload(TheSession().modules.back().get());
}

bool ModuleLoaded(const std::string& fileName) {
    return FindLoaded(Wide(fileName)) != nullptr;
}

}  // namespace bench

using bench::HostCall;
using bench::Module;

int acedArxLoad(const ACHAR* app) {
    HostCall call("acedArxLoad", bench::Narrow(app));
    if (call.fails()) return call.failed(RTERROR);
    return call.done(app == nullptr ? RTERROR : bench::Load(app));
}

// A locked module stays; so does one that is not loaded.
int acedArxUnload(const ACHAR* app) {
    HostCall call("acedArxUnload", bench::Narrow(app));
    if (call.fails()) return call.failed(RTERROR);
    Module* module = app == nullptr ? nullptr : bench::FindLoaded(app);
    if (module == nullptr) return call.done(RTERROR);
    if (module->locked) {
        bench::Print("\n" + bench::Narrow(app) + " cannot be unloaded.\n");
        return call.done(RTERROR);
    }
    bench::Unload(module);
    return call.done(RTNORM);
}

bool acrxLoadModule(const ACHAR* moduleName, bool, bool) {
    return acedArxLoad(moduleName) == RTNORM;
}

bool acrxUnlockApplication(void* appId) {
    HostCall call("acrxUnlockApplication", "");
    Module* module = call.fails() ? nullptr : bench::ById(appId, "acrxUnlockApplication");
    if (module != nullptr) module->locked = false;
    return module != nullptr;
}

bool acrxLockApplication(void* appId) {
    HostCall call("acrxLockApplication", "");
    Module* module = call.fails() ? nullptr : bench::ById(appId, "acrxLockApplication");
    if (module != nullptr) module->locked = true;
    return module != nullptr;
}

bool acrxRegisterAppMDIAware(void* appId) {
    HostCall call("acrxRegisterAppMDIAware", "");
    Module* module = call.fails() ? nullptr : bench::ById(appId, "acrxRegisterAppMDIAware");
    if (module != nullptr) module->mdiAware = true;
    return module != nullptr;
}
