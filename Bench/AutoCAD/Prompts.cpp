#include "CommandLine.h"

#include "ArxCall.h"
#include "Session.h"
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
    Session& session = TheSession();
    Print(prompt);
    Answer answer{Answer::kEscape, ""};
    std::wstring line;
    if (TakeInput(blankEnds, line)) {
        answer = line.empty() ? Answer{Answer::kEnter, ""} : Answer{Answer::kText, Ansi(line)};
    } else if (!session.answers.empty()) {
        answer = session.answers.front();
        session.answers.pop_front();
    } else if (session.user) {
        answer = session.user(prompt);
    } else {
        ReportViolation("Nobody answered the prompt \"" + prompt + "\".");
    }
    Print(Echo(answer));
    return answer;
}

void QueueAnswer(const Answer& answer) {
    TheSession().answers.push_back(answer);
}
size_t AnswersLeft() {
    return TheSession().answers.size();
}
void ClearAnswers() {
    TheSession().answers.clear();
}
void SetUser(std::function<Answer(const std::string&)> user) {
    TheSession().user = std::move(user);
}

}  // namespace bench

int acedGetString(int cronly, const ACHAR* prompt, ACHAR* result, size_t bufsize) {
    bench::ArxCall call("acedGetString", bench::Shown(prompt));
    if (call.fails()) return call.failed(RTERROR);
    if (result == nullptr || bufsize == 0) return call.done(RTERROR);
    *result = L'\0';
    const bench::Answer answer = bench::Ask(prompt == nullptr ? "" : bench::Shown(prompt), cronly == 0);
    if (answer.kind == bench::Answer::kEscape) return call.done(RTCAN);
    if (answer.kind == bench::Answer::kPick || answer.kind == bench::Answer::kMiss) return call.done(RTERROR);
    call.result(answer.value);
    const std::wstring text = bench::FromAnsi(answer.value);
    result[text.copy(result, bufsize - 1)] = L'\0';
    return text.size() < bufsize ? RTNORM : RTINPUTTRUNCATED;
}
