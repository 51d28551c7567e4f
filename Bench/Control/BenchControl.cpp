#include "BenchControl.h"

#include <map>
#include <mutex>
#include <sstream>
#include <utility>

namespace bench {
namespace {

struct State {
    std::mutex mutex;
    std::vector<std::string> journal;
    size_t cleared = 0;  // lines that the journal had before
    std::vector<InjectedFault> failures;
    std::map<std::string, int> callsByName;
    std::map<std::pair<std::string, std::string>, int> owed;
    std::vector<std::string> accusations;
};

// The state for as long as one of these lives.
class Locked {
 public:
    Locked() : lock_(Instance().mutex) {}
    State* operator->() const { return &Instance(); }

 private:
    static State& Instance() {
        static State instance;
        return instance;
    }
    std::lock_guard<std::mutex> lock_;
};

thread_local int quietDepth = 0;

std::string OneLine(const std::string& text) {
    std::string line;
    for (char c : text) {
        if (c == '\n')
            line += "\\n";
        else if (c == '\r')
            line += "\\r";
        else
            line += c;
    }
    return line;
}

}  // namespace

Call::Call(const char* name, const std::string& arguments) : quiet_(quietDepth > 0) {
    if (quiet_) return;
    const Locked state;
    ++state->callsByName[name];
    for (const InjectedFault& failure : state->failures) {
        int ordinal = 0;
        for (const auto& [called, times] : state->callsByName)
            if (NameFits(called, failure.name)) ordinal += times;
        const bool reached = failure.fromThereOn ? ordinal >= failure.ordinal : ordinal == failure.ordinal;
        if (!reached || !NameFits(name, failure.name)) continue;
        fails_ = true;
        code_ = failure.code;
        poisons_ = failure.corruptsOutputs;
    }
    line_ = state->cleared + state->journal.size();
    state->journal.push_back(arguments.empty() ? std::string(name) : name + (" " + OneLine(arguments)));
}

Call::~Call() = default;

bool Call::fails() const {
    return fails_;
}

long Call::failureCode(long usual) const {
    return code_.value_or(usual);
}

bool Call::corruptsOutputs() const {
    return poisons_;
}

void Call::result(const std::string& text) {
    if (quiet_) return;
    const Locked state;
    // A server's thread may come to its result after the journal was cleared.
    if (line_ >= state->cleared) state->journal[line_ - state->cleared] += " -> " + OneLine(text);
}

void Call::result(long code) {
    result(std::to_string(code));
}

UnrecordedScope::UnrecordedScope() {
    ++quietDepth;
}

UnrecordedScope::~UnrecordedScope() {
    --quietDepth;
}

std::vector<std::string> CallLog() {
    return Locked()->journal;
}

void ClearCallLog() {
    const Locked state;
    state->cleared += state->journal.size();
    state->journal.clear();
}

void LogMarker(const std::string& text) {
    Locked()->journal.push_back(OneLine(text));
}

bool NameFits(const std::string& name, const std::string& pattern) {
    std::istringstream alternatives(pattern);
    for (std::string one; std::getline(alternatives, one, '|');) {
        const size_t star = one.find('*');
        if (star == std::string::npos ? name == one : name.compare(0, star, one, 0, star) == 0) return true;
    }
    return pattern.empty();
}

void InjectFault(const InjectedFault& failure) {
    Locked()->failures.push_back(failure);
}

void FailCall(const char* name, int ordinal) {
    InjectFault({name, ordinal, {}});
}

void FailCall(const char* name, int ordinal, long code) {
    InjectFault({name, ordinal, code});
}

void ClearFaults() {
    const Locked state;
    state->failures.clear();
    state->callsByName.clear();
}

void TrackAcquire(const std::string& kind, const std::string& name) {
    const Locked state;
    ++state->owed[{kind, name}];
}

bool TrackRelease(const std::string& kind, const std::string& name) {
    {
        const Locked state;
        const auto found = state->owed.find({kind, name});
        if (found != state->owed.end()) {
            if (--found->second == 0) state->owed.erase(found);
            return true;
        }
    }
    ReportViolation("A " + kind + " was given back that was not owed: " + name + ".");
    return false;
}

std::vector<std::string> OutstandingResources() {
    const Locked state;
    std::vector<std::string> balance;
    for (const auto& [what, count] : state->owed) {
        const std::string text = what.first + " " + what.second;
        balance.push_back(count == 1 ? text : text + " (" + std::to_string(count) + " times)");
    }
    return balance;
}

void ClearOutstandingResources() {
    Locked()->owed.clear();
}

void ReportViolation(const std::string& sentence) {
    Locked()->accusations.push_back(sentence);
}

std::vector<std::string> Violations() {
    return Locked()->accusations;
}

void ClearViolations() {
    Locked()->accusations.clear();
}

void ResetBench() {
    ClearCallLog();
    ClearFaults();
    ClearOutstandingResources();
    ClearViolations();
}

}  // namespace bench
