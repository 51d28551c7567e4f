#include "BenchControl.h"

#include <map>
#include <mutex>
#include <utility>

namespace bench {
namespace {

struct PlannedFailure {
    std::string name;  // empty: any call
    int ordinal;
    bool hasCode;
    long code;
};

struct State {
    std::mutex mutex;
    std::vector<std::string> journal;
    std::vector<PlannedFailure> failures;
    std::map<std::string, int> callsByName;
    int calls = 0;
    std::map<std::pair<std::string, std::string>, int> owed;
    std::vector<std::string> accusations;
};

State& state() {
    static State instance;
    return instance;
}

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

void Plan(PlannedFailure failure) {
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.failures.push_back(std::move(failure));
}

}  // namespace

Call::Call(const char* name, const std::string& arguments) : quiet_(quietDepth > 0) {
    if (quiet_) return;
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    const int ordinal = ++s.calls;
    const int ordinalOfName = ++s.callsByName[name];
    for (const PlannedFailure& failure : s.failures) {
        const bool meant = failure.name.empty() ? failure.ordinal == ordinal
                                                : failure.name == name && failure.ordinal == ordinalOfName;
        if (!meant) continue;
        fails_ = true;
        hasCode_ = failure.hasCode;
        code_ = failure.code;
    }
    line_ = s.journal.size();
    s.journal.push_back(arguments.empty() ? std::string(name) : name + (" " + OneLine(arguments)));
}

Call::~Call() = default;

bool Call::fails() const {
    return fails_;
}

long Call::failureCode(long usual) const {
    return hasCode_ ? code_ : usual;
}

void Call::result(const std::string& text) {
    if (quiet_) return;
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    if (line_ < s.journal.size()) s.journal[line_] += " -> " + OneLine(text);
}

void Call::result(long code) {
    result(std::to_string(code));
}

Quiet::Quiet() {
    ++quietDepth;
}

Quiet::~Quiet() {
    --quietDepth;
}

std::vector<std::string> Journal() {
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    return s.journal;
}

void ClearJournal() {
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.journal.clear();
}

void Note(const std::string& text) {
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.journal.push_back(OneLine(text));
}

void FailCall(int ordinal) {
    Plan({"", ordinal, false, 0});
}

void FailCall(const char* name, int ordinal) {
    Plan({name, ordinal, false, 0});
}

void FailCall(const char* name, int ordinal, long code) {
    Plan({name, ordinal, true, code});
}

void ClearFailures() {
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.failures.clear();
    s.callsByName.clear();
    s.calls = 0;
}

int CallCount() {
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    return s.calls;
}

void Owe(const std::string& kind, const std::string& name) {
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    ++s.owed[{kind, name}];
}

bool Settle(const std::string& kind, const std::string& name) {
    {
        State& s = state();
        std::lock_guard<std::mutex> lock(s.mutex);
        const auto found = s.owed.find({kind, name});
        if (found != s.owed.end()) {
            if (--found->second == 0) s.owed.erase(found);
            return true;
        }
    }
    Accuse("A " + kind + " was given back that was not owed: " + name + ".");
    return false;
}

std::vector<std::string> BenchBalance() {
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    std::vector<std::string> balance;
    for (const auto& [what, count] : s.owed) {
        const std::string text = what.first + " " + what.second;
        balance.push_back(count == 1 ? text : text + " (" + std::to_string(count) + " times)");
    }
    return balance;
}

void ClearBalance() {
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.owed.clear();
}

void Accuse(const std::string& sentence) {
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.accusations.push_back(sentence);
}

std::vector<std::string> Accusations() {
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    return s.accusations;
}

void ClearAccusations() {
    State& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.accusations.clear();
}

void ResetBench() {
    ClearJournal();
    ClearFailures();
    ClearBalance();
    ClearAccusations();
}

}  // namespace bench
