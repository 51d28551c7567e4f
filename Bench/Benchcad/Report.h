// The results of a run as data and as text. Pure functions; the caller collects everything.
#pragma once

#include <string>
#include <vector>

#include "BenchStatistics.h"
#include "FloorPlan.h"
#include "KbaseFile.h"

namespace bench {

struct CommandReport {
    std::string name;
    bool known = false;
    bool committed = false;
    std::vector<PlanPart> picked;  // the part that the user picked, if any
    std::string configuratorScript;
    std::vector<std::string> configuratorRecord;  // the lines that it wrote
    std::vector<std::string> requests;            // received by the web server
    std::vector<std::string> queued;              // strings that the module sent for execution
    std::vector<PlanPart> inserted;               // new parts
    std::vector<std::string> violations;
};

// Whether a command's calls end its transaction successfully and abort none.
bool Committed(const std::vector<std::string>& callLog);
// Returns the lines of one call, without its name.
std::vector<std::string> CallsOf(const std::vector<std::string>& callLog, const std::string& name);

std::string Heading(const std::string& text);
// `plan` names the systems of the parts.
std::string CommandText(const CommandReport& command, const FloorPlan& plan);
// Formats number, name and decoded value of every attribute. Returns an empty string for a record without a class.
std::string RecordText(const KbaseRecord& record);
std::string StatisticsText(const std::vector<StatisticsEvent>& events);
// Lists the failures, one sentence each, or states success.
std::string VerdictText(const std::vector<std::string>& failures);

}  // namespace bench
