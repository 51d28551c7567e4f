// Many runs in one process: nothing that a run needs may grow with the number of runs.
#include "CommandBench.h"

namespace {

class Soak : public CommandBench {};

TEST_F(Soak, GoodRun) {
    ChoosesASilencer();
    ConfirmsInsertion();
    Run();
    ExpectCommitted();
}

}  // namespace
