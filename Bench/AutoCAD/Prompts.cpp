#include "CommandLine.h"

#include "ArxCall.h"
#include "ProcessState.h"
#include "Texts.h"
#include "acedads.h"
#include "adscodes.h"

namespace bench {
namespace {

std::string Echo(const Answer& answer) {
    if (answer.kind == Answer::kEscape) return "*Cancel*\n";
    return answer.kind == Answer::kText ? answer.value + "\n" : "\n";
}

}  // namespace

Answer Ask(const std::string& prompt, bool blankEnds) {
    ProcessState& process = TheProcess();
    PrintText(prompt);
    Answer answer{Answer::kEscape, ""};
    std::wstring line;
    if (TakeInput(blankEnds, line)) {
        answer = line.empty() ? Answer{Answer::kEnter, ""} : Answer{Answer::kText, Ansi(line)};
    } else if (!process.answers.empty()) {
        answer = process.answers.front();
        process.answers.pop_front();
    } else if (process.user) {
        answer = process.user(prompt);
    } else {
        ReportViolation("Nobody answered the prompt \"" + prompt + "\".");
    }
    PrintText(Echo(answer));
    return answer;
}

void QueueAnswer(const Answer& answer) {
    TheProcess().answers.push_back(answer);
}
size_t AnswersLeft() {
    return TheProcess().answers.size();
}
void ClearAnswers() {
    TheProcess().answers.clear();
}
void SetUser(std::function<Answer(const std::string&)> user) {
    TheProcess().user = std::move(user);
}

}  // namespace bench

int acedGetString(int cronly, const ACHAR* prompt, ACHAR* result, size_t bufsize) {
    bench::ArxCall call("acedGetString", bench::LogText(prompt));
    if (call.fails()) return call.failed(RTERROR);
    if (result == nullptr || bufsize == 0) return call.done(RTERROR);
    *result = L'\0';
    const bench::Answer answer = bench::Ask(prompt == nullptr ? "" : bench::LogText(prompt), cronly == 0);
    if (answer.kind == bench::Answer::kEscape) return call.done(RTCAN);
    if (answer.kind == bench::Answer::kPick || answer.kind == bench::Answer::kMiss) return call.done(RTERROR);
    call.result(answer.value);
    const std::wstring text = bench::FromAnsi(answer.value);
    result[text.copy(result, bufsize - 1)] = L'\0';
    return text.size() < bufsize ? RTNORM : RTINPUTTRUNCATED;
}
