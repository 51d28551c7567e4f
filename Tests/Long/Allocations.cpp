// Out of memory: fails every allocation that the module makes in a run, once and from there on. The C++ runtime's
// reserve for exceptions stays.
#include <climits>
#include <cstdlib>

#include "SweepBench.h"

namespace {

int made = -1;            // allocations since Arm; -1 while they are not counted
int first = 0, last = 0;  // ordinals of the allocations that fail

void* Allocate(size_t size) {
    if (made >= 0) ++made;
    if (made > 0 && made >= first && made <= last) return nullptr;
    return HeapCheck::Allocate(size);
}

class Allocations : public SweepBench {
 protected:
    void Arm(const bench::InjectedFault& failure) override {
        first = failure.ordinal;
        last = failure.fromThereOn ? INT_MAX : first;
        made = 0;
    }
    void Disarm() override {
        reached_ = made;
        made = -1;
    }
    bool Met(const bench::InjectedFault& failure) const override { return reached_ >= failure.ordinal; }

    const ImportPatch patch_{"malloc", Allocate, module()};
    int reached_ = 0;
};

TEST_F(Allocations, SurvivesAnyFailedAllocation) {
    LearnHealthyRun();
    Arm({"", 0, {}});
    RunHealthily();
    Disarm();
    Reopen();
    const int allocations = reached_;
    ASSERT_GT(allocations, 100);
    // The runtime creates the reserve's lock at the first exception that needs the reserve. That allocation must
    // succeed.
    Arm({"", 1, {}});
    last = 2;
    RunHealthily();
    Disarm();
    ForgetOutstanding();
    for (int ordinal = 1; ordinal <= allocations; ++ordinal) {
        Plant({"malloc", ordinal, {}});
        Plant({"memory", ordinal, {}, true});
    }
    std::printf("%d failures planted\n", planted());
}

}  // namespace
