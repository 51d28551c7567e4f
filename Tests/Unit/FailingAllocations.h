// Memory that runs out by plan: while it lives, `operator new` of the test program refuses this thread everything after
// the first `granted` allocations. What the case itself needs it makes before, and it asks nothing of the test
// framework in between. Other threads, the C runtime's own heap and other modules of the process are not touched. One
// at a time.
//   for (int granted = 0;; ++granted) {
//       const FailingAllocations failing(granted);
//       Call();
//       if (failing.refused() == 0) break;  // the call needs no more than this
//   }
#pragma once

class FailingAllocations {
 public:
    explicit FailingAllocations(int granted);
    ~FailingAllocations();
    FailingAllocations(const FailingAllocations&) = delete;
    FailingAllocations& operator=(const FailingAllocations&) = delete;

    // Allocations refused so far.
    int refused() const;
};
