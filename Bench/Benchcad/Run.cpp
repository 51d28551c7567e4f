#include "Run.h"

#include <windows.h>

#include <fstream>
#include <stdexcept>

#include "BenchAutoCAD.h"
#include "BenchControl.h"
#include "BenchKbase.h"
#include "BenchKlimora.h"
#include "BenchTexts.h"
#include "FloorPlanDrawing.h"
#include "Output.h"
#include "ProjectPlan.h"

namespace bench {
namespace {

constexpr int kSetUpSeconds = 60;
constexpr int kCloseSeconds = 30;

std::vector<std::string> LinesOf(const std::string& file) {
    std::vector<std::string> lines;
    std::ifstream stream(file, std::ios::binary);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

std::vector<std::string> Beyond(const std::vector<std::string>& lines, size_t count) {
    return {lines.begin() + static_cast<std::ptrdiff_t>(count), lines.end()};
}

}  // namespace

bool Run::Open() {
    watchdog_.Step("the fakes and the module to start", kSetUpSeconds);
    std::string problem;
    try {
        stage_ = std::make_unique<Stage>(options_.catalogue);
        SetEcho(Say);
        problem = stage_->OpenProject(options_.project, {});
        LogMarker("-- load module");
        if (problem.empty()) problem = stage_->LoadModule(options_.module);
    } catch (const std::runtime_error& error) {
        problem = error.what();
    }
    watchdog_.Step({}, 0);
    if (!problem.empty()) {
        Say("\nbenchcad: " + problem + "\n");
        return false;
    }
    handlesBefore_ = HandlesOfProject();
    Save("floor-before.svg", FloorPlanSvg(Plan("Floor plan before the run")));
    return true;
}

CommandReport Run::Command(const std::string& name, const std::string& configurator, int seconds) {
    const std::string recordFile = options_.outputFolder + "\\configurator.txt";
    SetEnvironmentVariableA("SORVIK_BENCH_CONFIGURATOR", configurator.c_str());
    SetEnvironmentVariableA("SORVIK_BENCH_CONFIGURATOR_RECORD", recordFile.c_str());
    DeleteFileA(recordFile.c_str());
    CommandReport report;
    report.name = name;
    report.configuratorScript = configurator;
    const std::set<std::string> known = HandlesOfProject();
    const FloorPlan before = PlanOfProject("", "", known);
    const size_t requestsBefore = stage_->server().requests().size();
    LogMarker("-- command " + name);
    const size_t callsBefore = CallLog().size();
    const size_t violationsBefore = Violations().size();

    if (seconds > 0) watchdog_.Step("the command " + name, seconds);
    report.known = RunCommand(name);
    watchdog_.Step({}, 0);

    const std::vector<std::string> calls = Beyond(CallLog(), callsBefore);
    report.committed = Committed(calls);
    for (const PlanPart& part : before.parts)
        if (part.handle == LastPick()) report.picked.push_back(part);
    report.violations = Beyond(Violations(), violationsBefore);
    report.queued = CallsOf(calls, "AcApDocManager::sendStringToExecute");
    report.requests = Beyond(stage_->server().requests(), requestsBefore);
    report.configuratorRecord = LinesOf(recordFile);
    DeleteFileA(recordFile.c_str());
    const FloorPlan after = PlanOfProject("", "", known);
    for (const PlanPart& part : after.parts)
        if (part.marked) report.inserted.push_back(part);
    if (report.known) Say(CommandText(report, after));
    return report;
}

int Run::Finish() {
    const std::string record = RecordText(LastSavedRecord());
    const std::string statistics = StatisticsText(StatisticsEvents());
    Save("record.txt", record);
    Save("statistics.txt", statistics);
    Save("project.xml", ProjectXml());
    Save("floor-after.svg", FloorPlanSvg(Plan("Floor plan after the run")));
    Save("transcript.txt", Transcript());
    if (!record.empty()) Say(Heading("Product record") + record);
    if (!statistics.empty()) Say(Heading("Usage statistics") + statistics);

    watchdog_.Step("the module to unload and the fakes to close", kCloseSeconds);
    LogMarker("-- unload module");
    const std::string unloading = stage_->Close();
    watchdog_.Step({}, 0);
    Save("call-log.txt", Join(CallLog(), "\n") + "\n");
    if (!unloading.empty()) Fail(unloading);
    for (const std::string& sentence : Violations())
        Fail(sentence);
    for (const std::string& resource : OutstandingResources())
        Fail("Not released: " + resource + ".");
    Say(VerdictText(failures_) + "\nWritten to " + DisplayPath(options_.outputFolder) + "\n");
    return failures_.empty() ? kSuccess : kFailure;
}

void Run::Save(const char* file, const std::string& text) {
    const std::string problem = WriteText(options_.outputFolder + "\\" + file, text);
    if (!problem.empty()) Fail(problem);
}

FloorPlan Run::Plan(const char* title) const {
    const UnrecordedScope quiet;
    return PlanOfProject(title, "Drawn from " + PartAttribute("", "/dwg/kpjfilename"), handlesBefore_);
}

}  // namespace bench
