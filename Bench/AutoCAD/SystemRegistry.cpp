// The system registry, where a module looks up command stack, services and loader.
#include "SystemRegistry.h"

#include "ArxCall.h"
#include "Texts.h"
#include "rxnames.h"

namespace {

using bench::ArxCall;

class SystemRegistry : public AcRxDictionary {
 public:
    AcRxObject* at(const ACHAR* key) const override {
        ArxCall call("AcRxDictionary::at", bench::LogText(key));
        if (call.fails() || key == nullptr) return nullptr;
        if (bench::SameName(key, ACRX_COMMAND_DOCK)) return bench::TheCommandStack();
        if (bench::SameName(key, ACRX_SERVICE_DICTIONARY)) return bench::ServiceDictionary();
        return bench::SameName(key, ACRX_DYNAMIC_LINKER) ? bench::TheDynamicLinker() : nullptr;
    }

    AcRxObject* remove(const ACHAR* key) override {
        ArxCall call("AcRxDictionary::remove", bench::LogText(key));
        bench::ReportViolation("The entry " + bench::LogText(key) + " of the system registry must not be removed.");
        return nullptr;
    }
};

}  // namespace

AcRxDictionary* acrxSysRegistry() {
    ArxCall call("acrxSysRegistry", "");
    static SystemRegistry registry;
    return &registry;
}
