#include "SweepBench.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "BenchKbase.h"
#include "BenchTexts.h"
#include "RequestTarget.h"

namespace {

constexpr int kHangSeconds = 60;
constexpr ULONGLONG kLongestRun = 20000;  // ms

// Exceptions from the rules, and their reasons.
const Tolerance kTolerances[] = {
    {Breach::kSilent, "acedSSGet|acedSSName|acdbGetObjectId", 0, "it counts as a pick that hits nothing"},
    {Breach::kOther, "kbinsertatt", 0, "its result is ignored: the record lacks the value"},
    {Breach::kOther, "IKlimora200805::manageProductData", 0,
     "a positive code is not a failure; the insert command then reports that the product is missing"},
    {Breach::kOther, "acedSetVar", 2, "AutoCAD does not restore CMDECHO"}};

// Differences that are allowed because the user reads of them: a product that was added but not inserted, and one that
// lacks a text for want of memory.
constexpr char kNotInserted[] = "is in the project, but was not inserted.";
constexpr char kLacksText[] = "NN PlugIn/KL_Conn_DevicesData(";

// Calls that only the success of another call may lead to: the program to a duct, the addition to a record, and the
// insertion to an addition.
constexpr std::pair<const char*, const char*> kPrerequisites[] = {
    {"CreateProcessA", "IKlimora200805::getPartAtt '2A3' '/part/qv_sizingflow/ls'"},
    {"IKlimora200805::manageProductData", "kbsaverec"},
    {"AcApDocManager::sendStringToExecute", "IKlimora200805::manageProductData"}};

using Launch = BOOL WINAPI(LPCSTR, LPSTR, LPSECURITY_ATTRIBUTES, LPSECURITY_ATTRIBUTES, BOOL, DWORD, LPVOID, LPCSTR,
                           LPSTARTUPINFOA, LPPROCESS_INFORMATION);
Launch* launchProgram = nullptr;
bool startsProgram = true;
PROCESS_INFORMATION ended = {};  // a configurator that exported a product

HANDLE Duplicate(HANDLE handle) {
    HANDLE duplicate = nullptr;
    DuplicateHandle(GetCurrentProcess(), handle, GetCurrentProcess(), &duplicate, 0, FALSE, DUPLICATE_SAME_ACCESS);
    return duplicate;
}

void Request(const char* method, const std::string& text) {
    const bench::RequestTarget target = bench::ParseRequestTarget(text);
    bench::Call call(method, target.text());
    call.result(TheWebServer().Answer(method, target, TheWebServer().RecordRequest(method, target)).status);
}

BOOL WINAPI LaunchConfigurator(LPCSTR program, LPSTR line, LPSECURITY_ATTRIBUTES process, LPSECURITY_ATTRIBUTES thread,
                               BOOL inherit, DWORD flags, LPVOID environment, LPCSTR folder, LPSTARTUPINFOA startup,
                               LPPROCESS_INFORMATION started) {
    const bench::Call call("CreateProcessA", "");
    if (call.fails()) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    if (startsProgram) {
        const BOOL done =
            launchProgram(program, line, process, thread, inherit, flags, environment, folder, startup, started);
        if (!ended.hProcess) ended = {Duplicate(started->hProcess), Duplicate(started->hThread), 0, 0};
        return done;
    }
    const std::string words = line;
    const std::string address = words.substr(words.find('"') + 1, words.find("\" \"") - words.find('"') - 1);
    Request("GET", address);
    Request("POST",
            "/klimora/choose?klsid=" + bench::ParseRequestTarget(address).Value("klsid") + "&product=SRC-250-900");
    *started = {Duplicate(ended.hProcess), Duplicate(ended.hThread), 0, 0};
    return TRUE;
}

void Crash() {
    RaiseException(STATUS_NONCONTINUABLE_EXCEPTION, EXCEPTION_NONCONTINUABLE, 0, nullptr);
}

std::string FirstWord(const std::string& line) {
    return line.substr(0, line.find(' '));
}

// The first line that differs, in both texts.
std::string Difference(const std::string& expected, const std::string& found) {
    std::istringstream one(expected), other(found);
    std::string line, counterpart;
    for (;;) {
        const bool more = static_cast<bool>(std::getline(one, line));
        const bool moreFound = static_cast<bool>(std::getline(other, counterpart));
        if (!more && !moreFound) return {};
        if (more != moreFound || line != counterpart)
            return "expected " + (more ? bench::Quoted(line) : "nothing more") + ", found " +
                   (moreFound ? bench::Quoted(counterpart) : "nothing more");
    }
}

void RemoveTemporaryFolders() {
    std::istringstream names(CommandBench::TemporaryFolders());
    std::error_code ignored;
    for (std::string name; std::getline(names, name);)
        std::filesystem::remove_all(std::filesystem::temp_directory_path() / name, ignored);
}

}  // namespace

SweepBench::SweepBench()
    : launch_("CreateProcessA", LaunchConfigurator, module()),
      heap_(module()),
      abort_("abort", Crash, module()),
      tolerances_(std::begin(kTolerances), std::end(kTolerances)) {
    launchProgram = launch_.original<Launch>();
    if (const char* const only = std::getenv("SORVIK_FAIL")) only_ = only;
    InTheConfigurator("choose SRC-250-900");
    RemoveTemporaryFolders();  // left by earlier programs
}

SweepBench::~SweepBench() {
    if (!only_.empty() && planted_ == 0) ADD_FAILURE() << "no fault of this case is called " << only_;
    robot().Reset();
}

std::string SweepBench::NameOf(const bench::InjectedFault& failure) {
    return failure.name + " " + std::to_string(failure.ordinal) +
           (failure.code ? ", code " + std::to_string(*failure.code) : "") +
           (failure.corruptsOutputs ? ", with garbage" : "") + (failure.fromThereOn ? ", from there on" : "");
}

std::vector<bench::InjectedFault> SweepBench::EveryCall(const char* pattern) {
    LearnHealthyRun();
    std::vector<bench::InjectedFault> failures;
    std::map<std::string, int> times;
    for (const std::string& name : calls_)
        if (bench::NameFits(name, pattern)) failures.push_back({name, ++times[name], {}});
    return failures;
}

bool SweepBench::Met(const bench::InjectedFault& failure) const {
    const std::vector<std::string> calls = bench::CallLog();
    return failure.ordinal <= std::count_if(calls.begin(), calls.end(), [&](const std::string& line) {
               return bench::NameFits(FirstWord(line), failure.name);
           });
}

void SweepBench::UsualRun() {
    StartOver();
    bench::ClearAnswers();
    robot().Reset();
    Picks("2A3");
    ConfirmsInsertion();
    robot().Expect(bench::Dialog("Configurator").Press(IDOK));
}

void SweepBench::Reopen() {
    bench::NewDrawing("Office.dwg");
    std::string reason;
    if (!bench::OpenProject("office.xml", reason)) ADD_FAILURE() << reason;
}

std::string SweepBench::Product() const {
    const bench::KbaseRecord record = bench::LastSavedRecord();
    std::string text = "-- record " + record.className + " " + record.key + "\n";
    for (const auto& [number, attribute] : record.attributes)
        text += std::to_string(number) + " " + bench::Hex(attribute.bytes) + "\n";
    return text + Surroundings();
}

std::string SweepBench::Outcome() const {
    return MaskedCallLog() + Product() + "\n-- command line\n" + bench::Transcript();
}

void SweepBench::RunHealthily() {
    UsualRun();
    Run();
}

std::string SweepBench::LearnHealthyRun() {
    if (!healthy_.empty()) return {};
    opened_ = Surroundings();
    startsProgram = true;
    RunHealthily();
    const std::string withProgram = Outcome();
    Reopen();
    startsProgram = false;
    RunHealthily();
    healthy_ = Outcome();
    after_ = Product();
    for (const std::string& line : bench::CallLog())
        if (line.compare(0, 2, "--") != 0) calls_.push_back(FirstWord(line));
    Reopen();
    return Difference(healthy_, withProgram);
}

std::string SweepBench::ShownToUser() {
    std::string shown = Printed();
    for (const bench::SeenDialog& seen : robot().Seen())
        shown += seen.caption + "\n";
    return shown;
}

bool SweepBench::Attempted(const std::string& text) {
    if (ShownToUser().find(text) != std::string::npos) return true;
    const std::vector<std::string> lines = Calls("acutPrintf ");
    return std::any_of(lines.begin(), lines.end(), [&](const std::string& line) {
        return line.find(text) != std::string::npos && line.find(" -> ") != std::string::npos;
    });
}

bool SweepBench::ReportedAnything() {
    return Attempted(kName) || Attempted("KlimComSrvImpl::");
}

// The user ends the command at a second prompt, which follows an unsuitable pick, or in the configurator, which reports
// its failed requests itself.
bool SweepBench::EndedByUser() const {
    const std::vector<std::string> choices = Calls("POST ");
    const bool exported = !choices.empty() && choices[0].find(" -> 200") != std::string::npos;
    return CountOf("acedSSGet") > 1 || (CountOf("GET /klimora?") > 0 && !exported);
}

std::string SweepBench::PrematureCall() const {
    for (const auto& [call, needed] : kPrerequisites) {
        bool succeeded = false;
        for (const std::string& line : bench::CallLog()) {
            if (line.find(needed) == 0) succeeded = std::atol(line.c_str() + line.rfind(' ')) >= 0;
            if (line.find(call) == 0 && !succeeded) return std::string(call) + " although " + needed + " had failed";
        }
    }
    return {};
}

// The calls of a healthy run that the fault affects.
std::vector<bench::InjectedFault> SweepBench::Concerned(const bench::InjectedFault& failure) const {
    std::vector<bench::InjectedFault> concerned;
    std::map<std::string, int> times;
    int reached = 0;
    for (const std::string& name : calls_) {
        const int ordinal = ++times[name];
        if (!bench::NameFits(name, failure.name) || ++reached < failure.ordinal) continue;
        concerned.push_back({name, ordinal, {}});
        if (!failure.fromThereOn) break;
    }
    if (concerned.empty()) concerned.push_back(failure);  // not a call of the call log
    return concerned;
}

bool SweepBench::Tolerated(Breach breach, const bench::InjectedFault& call) const {
    return std::any_of(tolerances_.begin(), tolerances_.end(), [&](const Tolerance& one) {
        return one.breach == breach && (one.ordinal == 0 || one.ordinal == call.ordinal) &&
               bench::NameFits(call.name, one.calls);
    });
}

std::vector<std::string> SweepBench::ProblemsWith(const bench::InjectedFault& failure) {
    LearnHealthyRun();
    std::vector<std::string> wrong;
    const auto must = [&](bool holds, const std::string& sentence) {
        if (!holds) wrong.push_back(sentence);
    };
    UsualRun();
    startsProgram = failure.name.find("GET") == 0 || failure.name.find("POST") == 0;
    bench::LogMarker("-- SORVIK_FAIL='" + NameOf(failure) + "'");
    watchdog_.Step("the run with SORVIK_FAIL='" + NameOf(failure) + "'", kHangSeconds);
    const ULONGLONG start = GetTickCount64();
    Arm(failure);
    Run();
    Disarm();
    startsProgram = false;
    AfterRun();
    must(GetTickCount64() - start < kLongestRun, "The run took longer than 20 seconds.");
    must(Met(failure), "The run did not reach the fault.");
    const bool committed = CountOf("AcTransactionManager::endTransaction") == 1;
    const std::vector<bench::InjectedFault> concerned = Concerned(failure);
    const auto tolerates = [&](Breach breach) { return [=](const auto& call) { return Tolerated(breach, call); }; };
    const std::string unlike = Difference(committed ? after_ : opened_, committed ? Product() : Surroundings());
    must(unlike.empty() || Attempted(committed ? kLacksText : kNotInserted) ||
             std::any_of(concerned.begin(), concerned.end(), tolerates(committed ? Breach::kOther : Breach::kLeft)),
         (committed ? "It committed something else: " : "It left something: ") + unlike);
    // The first failing call ends the command, so that it alone may excuse silence.
    must(committed || ReportedAnything() || EndedByUser() || Tolerated(Breach::kSilent, concerned.front()),
         "It reported nothing to the user.");
    must(PrematureCall().empty(), "It called " + PrematureCall() + ".");
    for (const std::string& resource : Outstanding())
        if (!MayRemain(resource)) wrong.push_back("Outstanding: " + resource + ".");
    for (const std::string& sentence : bench::Violations())
        wrong.push_back("Contract violation: " + sentence);
    for (const std::string& sentence : heap_.TakeErrors())
        wrong.push_back(sentence);
    ForgetOutstanding();
    bench::ClearViolations();
    RemoveTemporaryFolders();
    if (!unlike.empty() || committed) Reopen();

    watchdog_.Step("the healthy run after SORVIK_FAIL='" + NameOf(failure) + "'", kHangSeconds);
    RunHealthily();
    watchdog_.Step({}, 0);
    const std::string difference = Difference(healthy_, Outcome());
    must(difference.empty(), "The next run is not like a healthy one: " + difference);
    Reopen();
    return wrong;
}

bool SweepBench::Plant(const bench::InjectedFault& failure) {
    if (!only_.empty() && only_ != NameOf(failure)) return false;
    ++planted_;
    const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
    const std::string suite = test->test_suite_name();
    SCOPED_TRACE("repeat with: SORVIK_FAIL='" + NameOf(failure) + "' GTEST_FILTER=" + suite + "." + test->name() +
                 " ./test " + (suite == "FaultSweep" ? "-R command_tests" : "long -R " + suite));
    for (const std::string& sentence : ProblemsWith(failure))
        ADD_FAILURE() << sentence;
    return true;
}
