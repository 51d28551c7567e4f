// What all fakes share: a log of the module's calls to its dependencies, fault injection, tracking of acquired
// resources, and reported contract violations. Everything lives in BenchControl.dll, so each exists once per process.
// Thread-safe.
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

// One call from the module to a dependency, created on the stack of the fake's function. The constructor appends "name
// arguments" to the call log and checks for an injected fault; a result is appended as " -> result". Line breaks are
// logged as \n.
class BENCH_CONTROL_API Call {
 public:
    Call(const char* name, const std::string& arguments);
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

    // Whether the call must fail. A fake then does none of the call's work.
    bool fails() const { return fails_; }
    // Returns the injected code, or `usual` when the fault has none.
    long failureCode(long usual) const { return code_.value_or(usual); }
    // Whether the failing call writes garbage to its outputs instead of leaving them unchanged.
    bool corruptsOutputs() const { return corruptsOutputs_; }

    void result(const std::string& text);
    void result(long code);

 private:
    bool fails_ = false;
    bool corruptsOutputs_ = false;
    std::optional<long> code_;
    size_t line_ = 0;
    bool unrecorded_ = false;
};

// While an UnrecordedScope exists, calls on its thread belong to a fake: they are neither logged nor made to fail.
class BENCH_CONTROL_API UnrecordedScope {
 public:
    UnrecordedScope();
    ~UnrecordedScope();
    UnrecordedScope(const UnrecordedScope&) = delete;
    UnrecordedScope& operator=(const UnrecordedScope&) = delete;
};

// Call log: one line per call, in the order in which the calls began.
BENCH_CONTROL_API std::vector<std::string> CallLog();
BENCH_CONTROL_API void ClearCallLog();
// Appends a marker of the host program or a test ("-- command SorvSIL"). It does not count as a call.
BENCH_CONTROL_API void LogMarker(const std::string& text);

// Fault injection. Calls are counted from 1 since ClearFaults. Each fake decides how a call fails: a null handle, a
// code, a failing HRESULT, a refused connection.
// A name pattern is "kbsaverec", "kb*|ddk*" (prefixes), or empty for all calls.
struct InjectedFault {
    std::string name;          // pattern of the calls to count
    int ordinal = 1;           // the n-th of them fails
    std::optional<long> code;  // none: the call's default code
    bool fromThereOn = false;  // later ones fail too
    bool corruptsOutputs = false;
};
BENCH_CONTROL_API bool NameFits(const std::string& name, const std::string& pattern);
BENCH_CONTROL_API void InjectFault(const InjectedFault& fault);
BENCH_CONTROL_API void FailCall(const char* name, int ordinal, std::optional<long> code = {});
BENCH_CONTROL_API void ClearFaults();

// Leak tracking: resources that the module must release. `kind` is a plain noun ("open object", "resbuf chain"), `name`
// identifies one.
BENCH_CONTROL_API void TrackAcquire(const std::string& kind, const std::string& name);
// Releases one. Returns false and reports a violation when none of that kind and name is outstanding.
BENCH_CONTROL_API bool TrackRelease(const std::string& kind, const std::string& name);
// Returns the outstanding resources, one string each ("open object 2A7", or "open object 2A7 (3 times)"), ordered by
// kind and name.
BENCH_CONTROL_API std::vector<std::string> OutstandingResources();
BENCH_CONTROL_API void ClearOutstandingResources();

// Contract violations, as full sentences ("acutRelRb was called on a chain that was already released."). Every run and
// every test case checks them at its end.
BENCH_CONTROL_API void ReportViolation(const std::string& sentence);
BENCH_CONTROL_API std::vector<std::string> Violations();
BENCH_CONTROL_API void ClearViolations();

// Resets call log, faults, outstanding resources and violations.
BENCH_CONTROL_API void ResetBench();

// Makes a crash of the process print the exception and a stack of addresses with module names, and exit with code 4.
// Every program of the bench and the tests calls it first.
BENCH_CONTROL_API void ReportCrashes();

}  // namespace bench
