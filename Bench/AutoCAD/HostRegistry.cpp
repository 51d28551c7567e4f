// The system registry, its service dictionary and the services in it.
#include "HostRegistry.h"

#include <cstdlib>

#include "HostCall.h"
#include "HostSession.h"
#include "accmd.h"
#include "rxdict.h"
#include "rxnames.h"
#include "rxregsvc.h"
#include "rxsrvice.h"

namespace bench {
namespace {

struct Entry {
    std::wstring name;
    AcRxObject* object;
    HMODULE by;
};

// `owed`: entries are the modules' services, which the balance counts.
class BenchDictionary : public AcRxDictionary {
 public:
    explicit BenchDictionary(bool owed) : owed_(owed) {}

    AcRxObject* at(const ACHAR* key) const override {
        HostCall call("AcRxDictionary::at", Narrow(key));
        if (call.fails() || key == nullptr) return nullptr;
        for (const Entry& entry : entries)
            if (SameName(entry.name, key)) return entry.object;
        return nullptr;
    }
    AcRxObject* at(Adesk::UInt32 id) const override {
        HostCall call("AcRxDictionary::at", std::to_string(id));
        return call.fails() || id >= entries.size() ? nullptr : entries[id].object;
    }

    AcRxObject* atPut(const ACHAR* key, AcRxObject* pObject, Adesk::UInt32& retId) override {
        HostCall call("AcRxDictionary::atPut", Narrow(key));
        if (call.fails() || key == nullptr) return nullptr;
        return put(key, pObject, ModuleOf(__builtin_return_address(0)), retId);
    }

    // A planned failure gives no object back; the dictionary has forgotten and freed it all the same.
    AcRxObject* remove(const ACHAR* key) override {
        HostCall call("AcRxDictionary::remove", Narrow(key));
        for (size_t i = 0; key != nullptr && i < entries.size(); ++i)
            if (SameName(entries[i].name, key)) return take(i, call.fails());
        return nullptr;
    }
    AcRxObject* remove(Adesk::UInt32 id) override {
        HostCall call("AcRxDictionary::remove", std::to_string(id));
        return id < entries.size() ? take(id, call.fails()) : nullptr;
    }

    Adesk::Boolean has(const ACHAR* entryName) const override {
        HostCall call("AcRxDictionary::has", Narrow(entryName));
        for (const Entry& entry : entries)
            if (entryName != nullptr && SameName(entry.name, entryName)) return true;
        return false;
    }

    AcRxObject* put(const ACHAR* key, AcRxObject* object, HMODULE by, Adesk::UInt32& id) {
        for (id = 0; id < entries.size(); ++id)
            if (SameName(entries[id].name, key)) {
                AcRxObject* old = entries[id].object;
                entries[id].object = object;
                return old;
            }
        entries.push_back(Entry{key, object, by});
        if (owed_) Owe("service", Narrow(key));
        return nullptr;
    }

    std::vector<Entry> entries;

 private:
    AcRxObject* take(size_t index, bool fails) {
        AcRxObject* object = entries[index].object;
        if (owed_) Settle("service", Narrow(entries[index].name));
        entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(index));
        if (!fails) return object;
        delete object;
        return nullptr;
    }

    bool owed_;
};

BenchDictionary& Services() {
    static BenchDictionary services(true);
    return services;
}

BenchDictionary& SystemRegistry() {
    static BenchDictionary registry(false);
    return registry;
}

}  // namespace

HMODULE ModuleOf(const void* code) {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       static_cast<const wchar_t*>(code), &module);
    return module;
}

std::vector<std::wstring> ServicesOf(HMODULE module) {
    std::vector<std::wstring> names;
    for (const Entry& entry : Services().entries)
        if (entry.by == module) names.push_back(entry.name);
    return names;
}

bool ServiceExists(const std::string& name) {
    Quiet quiet;
    return Services().has(Wide(name).c_str());
}

// Services that nobody took away stay in the balance; their objects are freed here.
void ClearServices() {
    for (const Entry& entry : Services().entries)
        delete entry.object;
    Services().entries.clear();
}

}  // namespace bench

using bench::HostCall;

AcRxDictionary* acrxSysRegistry() {
    HostCall call("acrxSysRegistry", "");
    bench::BenchDictionary& registry = bench::SystemRegistry();
    if (registry.entries.empty()) {
        Adesk::UInt32 id;
        registry.put(ACRX_COMMAND_DOCK, bench::CommandStack(), nullptr, id);
        registry.put(ACRX_SERVICE_DICTIONARY, &bench::Services(), nullptr, id);
        registry.put(ACRX_DYNAMIC_LINKER, bench::DynamicLinker(), nullptr, id);
    }
    return &registry;
}

void* acrxRegisterService(const ACHAR* serviceName) {
    HostCall call("acrxRegisterService", bench::Narrow(serviceName));
    if (call.fails() || serviceName == nullptr) return nullptr;
    AcRxService* service = new AcRxService;
    Adesk::UInt32 id;
    delete bench::Services().put(serviceName, service, bench::ModuleOf(__builtin_return_address(0)), id);
    return service;
}

AcRxService* acrxRegisterService(const ACHAR* serviceName, AcRxService* pSvc) {
    HostCall call("acrxRegisterService", bench::Narrow(serviceName));
    if (call.fails() || serviceName == nullptr || pSvc == nullptr) return nullptr;
    Adesk::UInt32 id;
    delete bench::Services().put(serviceName, pSvc, bench::ModuleOf(__builtin_return_address(0)), id);
    return pSvc;
}

bool acrxServiceIsRegistered(const ACHAR* serviceName) {
    return bench::Services().has(serviceName);
}

AcRxService::AcRxService() : m_dependencies(0) {}
AcRxService::~AcRxService() = default;
void AcRxService::addDependency() {
    ++m_dependencies;
}
void AcRxService::removeDependency() {
    --m_dependencies;
}
Adesk::Boolean AcRxService::unloadable() const {
    return m_dependencies == 0;
}

AcRxResourceInstance::AcRxResourceInstance() : m_hInstance(nullptr), m_name(nullptr) {}
AcRxResourceInstance::AcRxResourceInstance(void* hInstance) : m_hInstance(hInstance), m_name(nullptr) {}
AcRxResourceInstance::AcRxResourceInstance(const wchar_t* name) : m_hInstance(nullptr), m_name(nullptr) {
    if (name != nullptr) m_name = _wcsdup(name);
}
AcRxResourceInstance::~AcRxResourceInstance() {
    std::free(m_name);
}
AcRxResourceInstance::AcRxResourceInstance(const AcRxResourceInstance& other) : AcRxResourceInstance() {
    *this = other;
}
AcRxResourceInstance& AcRxResourceInstance::operator=(const AcRxResourceInstance& other) {
    if (this == &other) return *this;
    std::free(m_name);
    m_hInstance = other.m_hInstance;
    m_name = other.m_name == nullptr ? nullptr : _wcsdup(other.m_name);
    return *this;
}
bool AcRxResourceInstance::isNull() const {
    return m_hInstance == nullptr && m_name == nullptr;
}
const AcRxResourceInstance& AcRxResourceInstance::empty() {
    static const AcRxResourceInstance instance;
    return instance;
}
