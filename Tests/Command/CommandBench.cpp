#include "CommandBench.h"

#include <filesystem>
#include <sstream>

#include "Unit/TestFiles.h"

namespace {

constexpr char kOwnCommands[] = "command group SORV_CMDS";
constexpr char kOwnService[] = "service SORV";
constexpr char kRecordFile[] = "configurator-record.txt";

std::string FolderList(const std::string& pattern) {
    std::string list;
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA(pattern.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return list;
    do {
        list += std::string(found.cFileName) + "\n";
    } while (FindNextFileA(search, &found));
    FindClose(search);
    return list;
}

void ReplaceAll(std::string& text, const std::string& what, const std::string& with) {
    for (size_t at = text.find(what); !what.empty() && at != std::string::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
}

// Removes the switch of the server's file access check, which is not part of the project's contents.
std::string WithoutAccessFlag(std::string project) {
    const std::string start = "<noPrjFileAccessCheck>", end = "</noPrjFileAccessCheck>";
    const size_t from = project.find(start), to = project.find(end);
    if (from != std::string::npos && to != std::string::npos) project.erase(from, to - from);
    return project;
}

}  // namespace

CommandBench::CommandBench() : robot_(bench::MainWindow()) {
    TheWebServer().Reset();
    bench::ClearStatisticsEvents();
    bench::ClearAnswers();
    DeleteFileA(kRecordFile);
    SetEnvironmentVariableA("SORVIK_BENCH_CONFIGURATOR_RECORD", kRecordFile);
    InTheConfigurator("cancel");
    UseServer({});
    bench::ResetBench();
    {
        bench::UnrecordedScope unrecorded;
        EXPECT_EQ(TheStage().LoadModule("Sorvik_R24_x64.arx"), "") << bench::Transcript();
    }
    bench::ClearTranscript();
}

CommandBench::~CommandBench() {
    for (const std::string& complaint : robot_.Complaints())
        ADD_FAILURE() << complaint;
    EXPECT_EQ(bench::AnswersLeft(), 0u) << "answers that no prompt asked for";
    {
        bench::UnrecordedScope unrecorded;
        EXPECT_EQ(TheStage().UnloadModule(), "");
    }
    bench::StopKlimora();
    for (const std::string& sentence : bench::Violations())
        ADD_FAILURE() << "contract violation: " << sentence;
    for (const std::string& resource : bench::OutstandingResources())
        ADD_FAILURE() << "outstanding: " << resource;
    DeleteFileA(kRecordFile);
}

void CommandBench::UseServer(const bench::KlimoraServer& server) {
    EXPECT_EQ(TheStage().OpenProject("office.xml", server), "");
}

void CommandBench::Picks(const std::string& handle) {
    bench::QueueAnswer({bench::Answer::kPick, handle});
}
void CommandBench::PressesEscape() {
    bench::QueueAnswer({bench::Answer::kEscape, ""});
}

void CommandBench::InTheConfigurator(const std::string& script) {
    SetEnvironmentVariableA("SORVIK_BENCH_CONFIGURATOR", script.c_str());
}

void CommandBench::MeetsBox(const std::string& text, bench::BoxIcon icon, const std::vector<std::string>& buttons,
                            const std::string& answer) {
    robot_.Expect(bench::Box(text).Captioned(kName).Icon(icon).Buttons(buttons).AnswerWith(answer));
}

void CommandBench::ChoosesASilencer() {
    Picks("2A3");
    InTheConfigurator("choose SRC-250-900");
    robot_.Expect(bench::Dialog("Configurator").Shows(1102, "SORV2").Press(IDOK));
}

void CommandBench::ConfirmsInsertion() {
    bench::QueueAnswer({bench::Answer::kEnter, ""});
}

void CommandBench::Run() {
    before_ = Surroundings();
    bench::RunCommand("SorvSIL");
}

void CommandBench::StartOver() {
    EXPECT_EQ(bench::Violations(), std::vector<std::string>{});
    bench::ClearCallLog();
    bench::ClearFaults();
    bench::ClearTranscript();
    bench::ClearStatisticsEvents();
    DeleteFileA(kRecordFile);
}

std::vector<std::string> CommandBench::Outstanding() {
    std::vector<std::string> outstanding;
    for (const std::string& resource : bench::OutstandingResources()) {
        if (resource != kOwnCommands && resource != kOwnService) outstanding.push_back(resource);
    }
    return outstanding;
}

void CommandBench::ForgetOutstanding() {
    bench::ClearOutstandingResources();
    bench::TrackAcquire("command group", "SORV_CMDS");
    bench::TrackAcquire("service", "SORV");
}

std::string CommandBench::Printed() const {
    std::istringstream lines(bench::Transcript());
    std::string line, printed;
    while (std::getline(lines, line)) {
        if (line.compare(0, 8, "Command:") != 0) printed += line + "\n";
    }
    return printed;
}

std::vector<std::string> CommandBench::Calls(const std::string& start) const {
    std::vector<std::string> calls;
    for (const std::string& line : bench::CallLog()) {
        if (line.compare(0, start.size(), start) == 0) calls.push_back(line.substr(start.size()));
    }
    return calls;
}

std::string CommandBench::ConfiguratorRecord() const {
    return ReadWholeFile(kRecordFile);
}

std::string CommandBench::SessionId() {
    std::string last;
    for (const std::string& request : TheWebServer().requests()) {
        const size_t at = request.find("klsid=");
        if (at != std::string::npos) last = request.substr(at + 6, 32);
    }
    return last;
}

std::string CommandBench::Surroundings() const {
    return bench::DrawingState() + "\n-- project\n" + WithoutAccessFlag(bench::ProjectXml()) + "\n-- CMDECHO " +
           bench::SystemVariable("CMDECHO") + "\n-- temporary folder\n" + TemporaryFolders() + "-- data folder\n" +
           FolderList("Sorvik/*") + "-- main window " + (IsWindowEnabled(bench::MainWindow()) ? "enabled" : "disabled");
}

std::string CommandBench::MaskedCallLog() const {
    const std::string session = SessionId();
    std::string folder;
    for (const std::string& call : Calls("ddk_opendatabase '"))
        folder = call.substr(0, call.find("/output.ddk"));
    std::string log;
    for (std::string line : bench::CallLog()) {
        ReplaceAll(line, session, "{session}");
        ReplaceAll(line, folder, "{folder}");
        for (const std::string call : {"acedSSName ", "acedSSFree "})
            if (line.compare(0, call.size(), call) == 0)
                line.replace(call.size(), line.find(' ', call.size()) - call.size(), "{set}");
        log += line + "\n";
    }
    return log;
}

std::string CommandBench::TemporaryFolders() {
    return FolderList((std::filesystem::temp_directory_path() / "Sor*").string());
}

void CommandBench::ExpectCommitted() {
    EXPECT_EQ(CountOf("AcTransactionManager::endTransaction"), 1u);
    EXPECT_EQ(CountOf("AcTransactionManager::abortTransaction"), 0u);
}

void CommandBench::ExpectNothingChanged() {
    EXPECT_EQ(CountOf("AcTransactionManager::abortTransaction"), 1u);
    EXPECT_EQ(CountOf("AcTransactionManager::endTransaction"), 0u);
    EXPECT_EQ(Surroundings(), before_);
    EXPECT_TRUE(bench::StatisticsEvents().empty());
}
