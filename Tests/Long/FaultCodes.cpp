// Fails every call of a run in other ways than its usual one, and lets whole components stop working.
#include "SweepBench.h"

namespace {

constexpr long kDisconnected = static_cast<long>(0x80010108);  // RPC_E_DISCONNECTED

class FaultCodes : public SweepBench {};

TEST_F(FaultCodes, SurvivesEveryFailureCode) {
    for (const bench::InjectedFault& usual : EveryCall()) {
        const std::string& name = usual.name;
        Plant({name, usual.ordinal, {}, true});
        // For the record library, every other code is a success.
        const bool library = bench::NameFits(name, "kb*|ddk*");
        for (const long code : {-1L, 1L, kDisconnected})
            if (!library || (code == -1 && name != "ddk_classsymboltoID")) Plant({name, usual.ordinal, code});
        if (!library) Plant({name, usual.ordinal, E_FAIL, false, true});
    }
    std::printf("%d failures planted\n", planted());
}

TEST_F(FaultCodes, SurvivesAComponentThatIsGone) {
    for (const char* component : {"ac*|Ac*|adsw*", "IKlimora*", "kb*|ddk*", "KlimoraPlugins*", "GET|POST", "*"})
        for (int call = 1; call <= static_cast<int>(EveryCall(component).size()); ++call)
            Plant({component, call, {}, true});
    std::printf("%d failures planted\n", planted());
}

}  // namespace
