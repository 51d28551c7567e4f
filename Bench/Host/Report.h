// What a run did, as data, and how it reads for a person. Pure: everything is collected by the caller.
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
    std::vector<PlanPart> picked;  // the part that the user picked, none when nothing was
    std::string configuratorScript;
    std::vector<std::string> configuratorRecord;  // its own lines
    std::vector<std::string> requests;            // that reached the web server
    std::vector<std::string> queued;              // texts that the module sent for execution
    std::vector<PlanPart> inserted;               // parts that are new
    std::vector<std::string> accusations;
};

// From the journal's lines of one command: it ended its transaction and aborted none, and ending it succeeded.
bool Committed(const std::vector<std::string>& journal);
// The lines of one call, without its name.
std::vector<std::string> CallsOf(const std::vector<std::string>& journal, const std::string& name);

std::string Heading(const std::string& text);
// `plan` names the systems of the parts.
std::string CommandText(const CommandReport& command, const FloorPlan& plan);
// Number, name and decoded value of every attribute; empty for a record without a class.
std::string RecordText(const KbaseRecord& record);
std::string StatisticsText(const std::vector<StatisticsEvent>& events);
// Everything that was wrong, one sentence each, or that nothing was.
std::string VerdictText(const std::vector<std::string>& failures);

}  // namespace bench
