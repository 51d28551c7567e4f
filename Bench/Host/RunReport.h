// What a run did, as data, and the summary of it that a person reads. Pure: everything is collected by the caller.
#pragma once

#include <string>
#include <vector>

#include "BenchStatistics.h"
#include "FloorPlan.h"

namespace bench {

struct CommandReport {
    std::string name;
    bool known = false;
    bool committed = false;
    std::vector<PlanPart> picked;  // the part that the user picked, none when nothing was
    std::string configuratorScript;
    std::vector<std::string> configuratorRecord;  // its own lines
    std::vector<std::string> requests;            // that reached the web server
    std::vector<std::string> queued;              // texts that the module sent for execution
    std::vector<PlanPart> inserted;               // parts that are new
};

struct RunReport {
    std::vector<CommandReport> commands;
    std::string productRecord;  // already readable, empty when none was saved
    std::vector<StatisticsEvent> events;
    FloorPlan after;
    std::vector<std::string> failures;  // everything that was wrong, one sentence each
};

// From the journal's lines of one command: it ended its transaction and aborted none, and ending it succeeded.
bool Committed(const std::vector<std::string>& journal);
// The lines of one call, without its name.
std::vector<std::string> CallsOf(const std::vector<std::string>& journal, const std::string& name);

std::string StatisticsText(const std::vector<StatisticsEvent>& events);
std::string SummaryText(const RunReport& report);
// Everything that was wrong, or that nothing was.
std::string VerdictText(const RunReport& report);

}  // namespace bench
