// Every call of a run failing in other ways than its usual one, and whole neighbours gone for good.
#include "SweepBench.h"

namespace {

constexpr long kDisconnected = static_cast<long>(0x80010108);  // the server is gone

class FaultCodes : public SweepBench {};

TEST_F(FaultCodes, SurvivesEveryFailureCode) {
    for (const bench::InjectedFault& usual : EveryCall()) {
        const std::string& name = usual.name;
        Plant({name, usual.ordinal, {}, true});
        // Of the record library every other code is a success.
        const bool library = bench::NameFits(name, "kb*|ddk*");
        for (const long code : {-1L, 1L, kDisconnected})
            if (!library || (code == -1 && name != "ddk_classsymboltoID")) Plant({name, usual.ordinal, code});
        if (!library) Plant({name, usual.ordinal, E_FAIL, false, true});
    }
    std::printf("%d failures planted\n", planted());
}

TEST_F(FaultCodes, SurvivesAComponentThatIsGone) {
    for (const char* neighbour : {"ac*|Ac*|adsw*", "IKlimora*", "kb*|ddk*", "KlimoraPlugins*", "GET|POST", "*"})
        for (int call = 1; call <= static_cast<int>(EveryCall(neighbour).size()); ++call)
            Plant({neighbour, call, {}, true});
    std::printf("%d failures planted\n", planted());
}

}  // namespace
