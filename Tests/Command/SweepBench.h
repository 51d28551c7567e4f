// A run of the command with one failure planted, and a healthy run right after it. What must hold after the one, and
// that the other is like any healthy run to the last byte, is asked here; a suite says which failures it plants. The
// configurator's program is not started for each run, which would take longer than all the rest: a process that ended
// long ago stands in for it, and its two requests are put to the web server as it puts them. The first healthy run and
// every run with a failure of a request start the real one.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "CommandBench.h"
#include "HeapCheck.h"
#include "Unit/ImportPatch.h"
#include "Watchdog.h"

// What a run with a failure must not do: end without a commit and without a word to the user, leave something behind
// without a commit, commit another product than a healthy run's.
enum class Breach { kSilent, kLeft, kOther };
struct Tolerance {
    Breach breach;
    const char* calls;  // pattern of the failing calls
    int ordinal;        // 0: any of them
    const char* why;
};

class SweepBench : public CommandBench {
 protected:
    SweepBench();
    ~SweepBench() override;

    // "kbsaverec 3, code -1, from there on": the name of a planted failure.
    static std::string NameOf(const bench::InjectedFault& failure);
    // Every call of a healthy run whose name fits the pattern, each as its usual failure, in the order of the calls.
    std::vector<bench::InjectedFault> EveryCall(const char* pattern = "*");
    // Runs with the failure and once without. Whatever is wrong fails the case, with the one command that repeats it:
    // with its name in SORVIK_FAIL, a suite plants this failure alone, and false tells that it was another.
    bool Plant(const bench::InjectedFault& failure);
    // The same pair of runs; what is wrong, a sentence each.
    std::vector<std::string> ProblemsWith(const bench::InjectedFault& failure);
    int planted() const { return planted_; }
    void Tolerate(const Tolerance& tolerance) { tolerances_.push_back(tolerance); }

    // How a failure is planted, and whether the run came to it.
    virtual void Arm(const bench::InjectedFault& failure) { bench::InjectFault(failure); }
    virtual void Disarm() { bench::ClearFaults(); }
    virtual bool Met(const bench::InjectedFault& failure) const;
    // Between the run with the failure and the look at what it left.
    virtual void AfterRun() {}
    // Whether the run was right to leave this outstanding.
    virtual bool MayRemain(const std::string&) const { return false; }
    // What the user saw of the last run: the command line, and captions of boxes.
    virtual std::string ShownToUser();

    void RunHealthily();
    // What came of the last run, to the last byte.
    std::string Outcome() const;
    // The first line in which the run with the configurator's own program differs; empty when there is none.
    std::string LearnHealthyRun();
    void Reopen();  // the project and the drawing as they were opened first
    HMODULE module() const { return GetModuleHandleA("Sorvik_R24_x64.arx"); }

 private:
    std::string Product() const;  // the record and all that lies around
    void UsualRun();              // the user does what leads to a product, whatever comes
    // Told, or tried to tell while the command line failed.
    bool Attempted(const std::string& text);
    bool ReportedAnything();
    bool EndedByUser() const;
    // A call that came although the one that it needs had failed; empty when there is none.
    std::string PrematureCall() const;
    std::vector<bench::InjectedFault> Concerned(const bench::InjectedFault& failure) const;
    bool Tolerated(Breach breach, const bench::InjectedFault& call) const;

    bench::Watchdog watchdog_;
    ImportPatch launch_;
    HeapCheck heap_;
    ImportPatch abort_;    // a module that gives up crashes, and a crash tells where
    std::string opened_;   // surroundings before a run
    std::string healthy_;  // outcome of a healthy run
    std::string after_;    // its product
    std::vector<std::string> calls_;
    std::string only_;
    std::vector<Tolerance> tolerances_;
    int planted_ = 0;
};
