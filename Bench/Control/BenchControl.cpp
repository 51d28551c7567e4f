#include "BenchControl.h"

#include <map>
#include <mutex>
#include <sstream>
#include <utility>

namespace bench {
namespace {

struct State {
    std::mutex mutex;
    std::vector<std::string> log;
    size_t cleared = 0;  // number of lines cleared so far
    std::vector<InjectedFault> faults;
    std::map<std::string, int> callsByName;
    std::map<std::pair<std::string, std::string>, int> outstanding;
    std::vector<std::string> violations;
};

// Locked access to the state.
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

thread_local int unrecordedDepth = 0;

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

Call::Call(const char* name, const std::string& arguments) : unrecorded_(unrecordedDepth > 0) {
    if (unrecorded_) return;
    const Locked state;
    ++state->callsByName[name];
    for (const InjectedFault& fault : state->faults) {
        int ordinal = 0;
        for (const auto& [called, times] : state->callsByName)
            if (NameFits(called, fault.name)) ordinal += times;
        const bool reached = fault.fromThereOn ? ordinal >= fault.ordinal : ordinal == fault.ordinal;
        if (!reached || !NameFits(name, fault.name)) continue;
        fails_ = true;
        code_ = fault.code;
        corruptsOutputs_ = fault.corruptsOutputs;
    }
    line_ = state->cleared + state->log.size();
    state->log.push_back(arguments.empty() ? std::string(name) : name + (" " + OneLine(arguments)));
}

void Call::result(const std::string& text) {
    if (unrecorded_) return;
    const Locked state;
    // A server thread may set its result after the log was cleared.
    if (line_ >= state->cleared) state->log[line_ - state->cleared] += " -> " + OneLine(text);
}

void Call::result(long code) {
    result(std::to_string(code));
}

UnrecordedScope::UnrecordedScope() {
    ++unrecordedDepth;
}

UnrecordedScope::~UnrecordedScope() {
    --unrecordedDepth;
}

std::vector<std::string> CallLog() {
    return Locked()->log;
}

void ClearCallLog() {
    const Locked state;
    state->cleared += state->log.size();
    state->log.clear();
}

void LogMarker(const std::string& text) {
    Locked()->log.push_back(OneLine(text));
}

bool NameFits(const std::string& name, const std::string& pattern) {
    std::istringstream alternatives(pattern);
    for (std::string one; std::getline(alternatives, one, '|');) {
        const size_t star = one.find('*');
        if (star == std::string::npos ? name == one : name.compare(0, star, one, 0, star) == 0) return true;
    }
    return pattern.empty();
}

void InjectFault(const InjectedFault& fault) {
    Locked()->faults.push_back(fault);
}

void FailCall(const char* name, int ordinal, std::optional<long> code) {
    InjectFault({name, ordinal, code});
}

void ClearFaults() {
    const Locked state;
    state->faults.clear();
    state->callsByName.clear();
}

void TrackAcquire(const std::string& kind, const std::string& name) {
    const Locked state;
    ++state->outstanding[{kind, name}];
}

bool TrackRelease(const std::string& kind, const std::string& name) {
    {
        const Locked state;
        const auto found = state->outstanding.find({kind, name});
        if (found != state->outstanding.end()) {
            if (--found->second == 0) state->outstanding.erase(found);
            return true;
        }
    }
    ReportViolation("A " + kind + " was released that was not outstanding: " + name + ".");
    return false;
}

std::vector<std::string> OutstandingResources() {
    const Locked state;
    std::vector<std::string> resources;
    for (const auto& [what, count] : state->outstanding) {
        const std::string text = what.first + " " + what.second;
        resources.push_back(count == 1 ? text : text + " (" + std::to_string(count) + " times)");
    }
    return resources;
}

void ClearOutstandingResources() {
    Locked()->outstanding.clear();
}

void ReportViolation(const std::string& sentence) {
    Locked()->violations.push_back(sentence);
}

std::vector<std::string> Violations() {
    return Locked()->violations;
}

void ClearViolations() {
    Locked()->violations.clear();
}

void ResetBench() {
    ClearCallLog();
    ClearFaults();
    ClearOutstandingResources();
    ClearViolations();
}

}  // namespace bench
