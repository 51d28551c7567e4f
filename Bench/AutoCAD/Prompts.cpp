// Prompts that read words, and the answers of the script or the user to all prompts.
#include <cwchar>

#include "AcString.h"
#include "HostCall.h"
#include "HostSession.h"
#include "acedads.h"
#include "adscodes.h"

namespace bench {
namespace {

std::string Shown(const Answer& answer) {
    switch (answer.kind) {
        case Answer::kEscape:
            return "*Cancel*\n";
        case Answer::kText:
            return answer.value + "\n";
        default:
            return "\n";
    }
}

}  // namespace

Answer Ask(const std::string& prompt) {
    Session& session = TheSession();
    Print(prompt);
    Answer answer{Answer::kEscape, ""};
    std::wstring line;
    if (TakeInput(false, line)) {
        answer = line.empty() ? Answer{Answer::kEnter, ""} : Answer{Answer::kText, Narrow(line)};
    } else if (!session.answers.empty()) {
        answer = session.answers.front();
        session.answers.pop_front();
    } else if (session.user) {
        answer = session.user(prompt);
    } else {
        Accuse("Nobody answered the prompt \"" + prompt + "\".");
    }
    Print(Shown(answer));
    return answer;
}

std::wstring KeywordFor(const std::wstring& typed) {
    for (const std::wstring& keyword : TheSession().keywords) {
        std::wstring capitals;
        for (wchar_t c : keyword)
            if (c >= L'A' && c <= L'Z') capitals += c;
        if (SameName(keyword, typed) || (!capitals.empty() && SameName(capitals, typed))) return keyword;
    }
    return {};
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

namespace {

int Deliver(HostCall& call, const std::wstring& text, ACHAR* result, size_t size) {
    call.result(Narrow(text));
    if (text.size() >= size) {
        text.copy(result, size - 1);
        result[size - 1] = L'\0';
        return RTINPUTTRUNCATED;
    }
    text.copy(result, text.size());
    result[text.size()] = L'\0';
    return RTNORM;
}

int GetString(int cronly, const ACHAR* prompt, ACHAR* result, size_t size) {
    HostCall call("acedGetString", Narrow(prompt == nullptr ? L"" : prompt));
    if (call.fails()) return call.failed(RTERROR);
    if (result == nullptr || size == 0) return call.done(RTERROR);
    *result = L'\0';
    std::wstring line;
    if (cronly == 0 && TakeInput(true, line)) {
        Print(Narrow(prompt == nullptr ? L"" : prompt) + Narrow(line) + "\n");
        return Deliver(call, line, result, size);
    }
    const Answer answer = Ask(prompt == nullptr ? "" : Narrow(prompt));
    if (answer.kind == Answer::kEscape) return call.done(RTCAN);
    if (answer.kind == Answer::kPick || answer.kind == Answer::kMiss) return call.done(RTERROR);
    return Deliver(call, Wide(answer.value), result, size);
}

int GetKeyword(const ACHAR* prompt, ACHAR* result, size_t size) {
    HostCall call("acedGetKword", Narrow(prompt == nullptr ? L"" : prompt));
    if (call.fails()) return call.failed(RTERROR);
    if (result == nullptr || size == 0) return call.done(RTERROR);
    *result = L'\0';
    for (;;) {
        const Answer answer = Ask(prompt == nullptr ? "" : Narrow(prompt));
        if (answer.kind == Answer::kEscape) return call.done(RTCAN);
        if (answer.kind == Answer::kEnter) return call.done(RTNONE);
        const std::wstring keyword = answer.kind == Answer::kText ? KeywordFor(Wide(answer.value)) : L"";
        if (!keyword.empty()) return Deliver(call, keyword, result, size);
        Print("Invalid option keyword.\n");
    }
}

}  // namespace
}  // namespace bench

using bench::HostCall;

int acedInitGet(int val, const ACHAR* kwl) {
    HostCall call("acedInitGet", std::to_string(val) + (kwl == nullptr ? "" : " " + bench::Narrow(kwl)));
    if (call.fails()) return call.failed(RTERROR);
    auto& keywords = bench::TheSession().keywords;
    keywords.clear();
    std::wstring list = kwl == nullptr ? L"" : kwl;
    for (size_t end; !list.empty(); list.erase(0, end == std::wstring::npos ? end : end + 1)) {
        end = list.find(L' ');
        if (end != 0) keywords.push_back(list.substr(0, end));
    }
    return call.done(RTNORM);
}

int acedGetKword(const ACHAR* str, ACHAR* result, size_t nBufLen) {
    const int code = bench::GetKeyword(str, result, nBufLen);
    bench::TheSession().keywords.clear();
    return code;
}

int acedGetKword(const ACHAR* str, AcString& sOut) {
    ACHAR text[512];
    const int code = acedGetKword(str, text, 512);
    sOut = code == RTNORM ? text : L"";
    return code;
}

int acedGetString(int cronly, const ACHAR* prompt, ACHAR* result, size_t bufsize) {
    const int code = bench::GetString(cronly, prompt, result, bufsize);
    bench::TheSession().keywords.clear();
    return code;
}

int acedGetString(int cronly, const ACHAR* prompt, AcString& sOut) {
    ACHAR text[2050];
    const int code = acedGetString(cronly, prompt, text, 2050);
    sOut = code == RTNORM ? text : L"";
    return code;
}
