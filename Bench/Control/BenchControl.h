// What all stand-ins share: one journal of the calls that the module makes to its neighbours, one plan of the calls
// that are to fail, one account of what the module must give back, and the accusations of a stand-in that saw its
// contract broken. Everything lives in BenchControl.dll, so there is one of each in a process. Safe from any thread.
#pragma once

#include <optional>
#include <string>
#include <vector>

#ifdef BENCH_CONTROL_BUILD
#define BENCH_CONTROL_API __declspec(dllexport)
#else
#define BENCH_CONTROL_API __declspec(dllimport)
#endif

namespace bench {

// One call of the module to a neighbour, an object on the stack of the stand-in's function. It takes its place in the
// journal when it is built, asks the failure plan whether it is to fail, and writes "name arguments" or, once a result
// is known, "name arguments -> result" when it ends. Line breaks inside are written as "\n".
class BENCH_CONTROL_API Call {
 public:
    Call(const char* name, const std::string& arguments);
    ~Call();
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

    // The plan wants this call to fail; the stand-in does nothing of the call's work then.
    bool fails() const;
    // The code to fail with: the plan's, or `usual` when the plan names none.
    long failureCode(long usual) const;
    // The failing call leaves garbage in its outputs instead of leaving them alone.
    bool corruptsOutputs() const;

    void result(const std::string& text);
    void result(long code);

 private:
    bool fails_ = false;
    bool poisons_ = false;
    std::optional<long> code_;
    size_t line_ = 0;
    bool quiet_ = false;
};

// Calls made on this thread while a UnrecordedScope lives are a stand-in's own: they are neither written nor planned to
// fail.
class BENCH_CONTROL_API UnrecordedScope {
 public:
    UnrecordedScope();
    ~UnrecordedScope();
    UnrecordedScope(const UnrecordedScope&) = delete;
    UnrecordedScope& operator=(const UnrecordedScope&) = delete;
};

// Journal: one line a call, in the order in which the calls began.
BENCH_CONTROL_API std::vector<std::string> CallLog();
BENCH_CONTROL_API void ClearCallLog();
// A line that is no call: a marker of the host or of a test ("-- command SorvSIL"). It is not counted as a call.
BENCH_CONTROL_API void LogMarker(const std::string& text);

// Failure plan. Calls count from 1, since the plan was last cleared. How a call fails is its stand-in's matter: a null
// handle, a code, a failing HRESULT, a connection that is refused.
// Patterns of names: "kbsaverec"; "kb*|ddk*", all that begin so; empty, all.
struct InjectedFault {
    std::string name;          // which calls count, a pattern
    int ordinal = 1;           // the n-th of them fails
    std::optional<long> code;  // none: the usual one of the call
    bool fromThereOn = false;  // and so does every later one
    bool corruptsOutputs = false;
};
BENCH_CONTROL_API bool NameFits(const std::string& name, const std::string& pattern);
BENCH_CONTROL_API void InjectFault(const InjectedFault& failure);
BENCH_CONTROL_API void FailCall(const char* name, int ordinal);
BENCH_CONTROL_API void FailCall(const char* name, int ordinal, long code);
BENCH_CONTROL_API void ClearFaults();

// Balance: what the module owes. `kind` is a plain noun ("open object", "resbuf chain"), `name` tells which one.
BENCH_CONTROL_API void TrackAcquire(const std::string& kind, const std::string& name);
// Gives one back; false, and an accusation, when nothing of that kind and name was owed.
BENCH_CONTROL_API bool TrackRelease(const std::string& kind, const std::string& name);
// What is owed now, one text each ("open object 2A7", or "open object 2A7 (3 times)"), in order of kind and name.
BENCH_CONTROL_API std::vector<std::string> OutstandingResources();
BENCH_CONTROL_API void ClearOutstandingResources();

// A full sentence about a broken contract ("acutRelRb was called on a chain that was already released."). Every run
// and every test case ends with a look at them.
BENCH_CONTROL_API void ReportViolation(const std::string& sentence);
BENCH_CONTROL_API std::vector<std::string> Violations();
BENCH_CONTROL_API void ClearViolations();

// Journal, failure plan, balance and accusations as at the start of the process.
BENCH_CONTROL_API void ResetBench();

}  // namespace bench
