// Fixture that runs the command with one injected fault, and then a healthy run. It checks the state after the first
// run, and that the second one equals the reference run to the last byte. A suite chooses the faults. Starting the
// configurator program in each run would take longer than all the rest. Handles of a process that has ended replace it,
// and the fixture sends its two requests to the web server. The first healthy run and every run with a failing request
// start the real program.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "CommandBench.h"
#include "HeapCheck.h"
#include "Unit/ImportPatch.h"
#include "Watchdog.h"

// What a run with a fault must not do: end without a commit and without a report to the user, leave something behind
// without a commit, or commit another product than a healthy run.
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

    // The name of an injected fault, such as "kbsaverec 3, code -1, from there on".
    static std::string NameOf(const bench::InjectedFault& failure);
    // Faults that fail each call of a healthy run whose name fits the pattern, in the order of the calls.
    std::vector<bench::InjectedFault> EveryCall(const char* pattern = "*");
    // Runs once with the fault and once without. Each problem fails the case and prints the command that repeats it.
    // When SORVIK_FAIL names another fault, does nothing and returns false.
    bool Plant(const bench::InjectedFault& failure);
    // Makes the same two runs. Returns a sentence for each problem.
    std::vector<std::string> ProblemsWith(const bench::InjectedFault& failure);
    int planted() const { return planted_; }
    void Tolerate(const Tolerance& tolerance) { tolerances_.push_back(tolerance); }

    // Arm and Disarm start and end the injection of a fault. Met returns whether the run reached it.
    virtual void Arm(const bench::InjectedFault& failure) { bench::InjectFault(failure); }
    virtual void Disarm() { bench::ClearFaults(); }
    virtual bool Met(const bench::InjectedFault& failure) const;
    // Called between the run with the fault and the checks.
    virtual void AfterRun() {}
    // Whether the run may leave this resource outstanding.
    virtual bool MayRemain(const std::string&) const { return false; }
    // What the user saw of the last run: the command line and the captions of boxes.
    virtual std::string ShownToUser();

    void RunHealthily();
    // Everything that the last run did, to compare it with another run.
    std::string Outcome() const;
    // Records the reference run. Returns the first line in which a run with the real configurator program differs, or
    // an empty string.
    std::string LearnHealthyRun();
    void Reopen();  // opens the original drawing and project again
    HMODULE module() const { return GetModuleHandleA("Sorvik_R24_x64.arx"); }

 private:
    std::string Product() const;  // the saved record and the surroundings
    void UsualRun();              // prepares a run in which the user inserts a product
    // Whether the text was shown, or the module tried to print it.
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
    ImportPatch abort_;    // crashes instead, because a crash prints the stack
    std::string opened_;   // surroundings before a run
    std::string healthy_;  // outcome of a healthy run
    std::string after_;    // its product
    std::vector<std::string> calls_;
    std::string only_;
    std::vector<Tolerance> tolerances_;
    int planted_ = 0;
};
