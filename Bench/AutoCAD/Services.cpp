#include "SystemRegistry.h"

#include "AcRxClass.h"
#include "ArxCall.h"
#include "BenchAutoCAD.h"
#include "CallerAddress.h"
#include "Texts.h"
#include "rxregsvc.h"
#include "rxsrvice.h"

ACRX_DEFINE_MEMBERS(AcRxDictionary, AcRxObject)
ACRX_DEFINE_MEMBERS(AcRxService, AcRxObject)
AcRxService::AcRxService() = default;
AcRxService::~AcRxService() = default;

namespace bench {
namespace {

struct Service {
    std::wstring name;
    AcRxObject* object;
    HMODULE by;
};

class Services : public AcRxDictionary {
 public:
    AcRxObject* at(const ACHAR* key) const override {
        ArxCall call("AcRxDictionary::at", LogText(key));
        const size_t place = call.fails() ? all.size() : find(key);
        return place < all.size() ? all[place].object : nullptr;
    }

    // With an injected fault no object is returned, although the dictionary has removed and freed it.
    AcRxObject* remove(const ACHAR* key) override {
        ArxCall call("AcRxDictionary::remove", LogText(key));
        const size_t place = find(key);
        if (place == all.size()) return nullptr;
        AcRxObject* object = all[place].object;
        TrackRelease("service", Ansi(all[place].name));
        all.erase(all.begin() + static_cast<std::ptrdiff_t>(place));
        if (!call.fails()) return object;
        delete object;
        return nullptr;
    }

    size_t find(const ACHAR* name) const {
        size_t place = 0;
        while (place < all.size() && (name == nullptr || !SameName(all[place].name, name)))
            ++place;
        return place;
    }

    std::vector<Service> all;
};

Services& TheServices() {
    static Services services;
    return services;
}

}  // namespace

AcRxDictionary* ServiceDictionary() {
    return &TheServices();
}

HMODULE ModuleOf(const void* code) {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       static_cast<const wchar_t*>(code), &module);
    return module;
}

std::vector<std::wstring> ServicesOf(HMODULE module) {
    std::vector<std::wstring> names;
    for (const Service& service : TheServices().all)
        if (service.by == module) names.push_back(service.name);
    return names;
}

bool ServiceExists(const std::string& name) {
    return TheServices().find(FromAnsi(name).c_str()) < TheServices().all.size();
}

void ClearServices() {
    for (const Service& service : TheServices().all)
        delete service.object;
    TheServices().all.clear();
}

}  // namespace bench

// Registering a name again replaces the service.
void* acrxRegisterService(const ACHAR* serviceName) {
    bench::ArxCall call("acrxRegisterService", bench::LogText(serviceName));
    if (call.fails() || serviceName == nullptr) return nullptr;
    bench::Services& services = bench::TheServices();
    const size_t place = services.find(serviceName);
    AcRxService* service = new AcRxService;
    if (place < services.all.size()) {
        delete services.all[place].object;
        services.all[place].object = service;
        return service;
    }
    services.all.push_back({serviceName, service, bench::ModuleOf(CALLER_ADDRESS())});
    bench::TrackAcquire("service", bench::LogText(serviceName));
    return service;
}
