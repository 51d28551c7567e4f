#include "CommandRun.h"

#include <windows.h>

#include <fstream>
#include <iterator>
#include <set>

#include "BenchAutoCAD.h"
#include "BenchControl.h"
#include "ProjectPlan.h"

namespace bench {
namespace {

std::vector<std::string> LinesOf(const std::string& file) {
    std::vector<std::string> lines;
    std::ifstream stream(file, std::ios::binary);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

template <typename Line>
std::vector<Line> Beyond(const std::vector<Line>& lines, size_t count) {
    if (count >= lines.size()) return {};
    return {lines.begin() + static_cast<std::ptrdiff_t>(count), lines.end()};
}

}  // namespace

CommandReport RunAndReport(const BenchStage& stage, const std::string& command, const std::string& configurator,
                           const std::string& recordFile) {
    CommandReport report;
    report.name = command;
    report.configuratorScript = configurator;
    SetEnvironmentVariableA("SORVIK_BENCH_CONFIGURATOR", configurator.c_str());
    SetEnvironmentVariableA("SORVIK_BENCH_CONFIGURATOR_RECORD", recordFile.c_str());
    DeleteFileA(recordFile.c_str());
    const std::set<std::string> known = HandlesOfProject();
    const FloorPlan before = PlanOfProject("", "", known);
    const size_t requestsBefore = stage.Requests().size();
    Note("-- command " + command);
    const size_t journalBefore = Journal().size();

    report.known = RunCommand(command);

    const std::vector<std::string> journal = Beyond(Journal(), journalBefore);
    report.committed = Committed(journal);
    for (const PlanPart& part : before.parts)
        if (part.handle == LastPick()) report.picked.push_back(part);
    report.queued = CallsOf(journal, "AcApDocManager::sendStringToExecute");
    report.requests = Beyond(stage.Requests(), requestsBefore);
    report.configuratorRecord = LinesOf(recordFile);
    DeleteFileA(recordFile.c_str());
    for (const PlanPart& part : PlanOfProject("", "", known).parts)
        if (part.marked) report.inserted.push_back(part);
    return report;
}

}  // namespace bench
