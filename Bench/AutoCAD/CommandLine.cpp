#include "CommandLine.h"

#include <algorithm>
#include <cstdarg>
#include <cwchar>

#include "ArxCall.h"
#include "ProcessState.h"
#include "Texts.h"
#include "acutads.h"
#include "adscodes.h"

namespace bench {

void PrintText(const std::string& text) {
    TheProcess().transcript += text;
    if (TheProcess().echo) TheProcess().echo(text);
}

bool TakeInput(bool blankEnds, std::wstring& line) {
    std::wstring& input = TheProcess().input;
    const size_t end = input.find_first_of(blankEnds ? L" \n" : L"\n");
    if (end == std::wstring::npos) return false;
    line = input.substr(0, end);
    input.erase(0, end + 1);
    return true;
}

std::string Transcript() {
    return TheProcess().transcript;
}
void ClearTranscript() {
    TheProcess().transcript.clear();
}
void SetEcho(std::function<void(const std::string&)> echo) {
    TheProcess().echo = std::move(echo);
}

}  // namespace bench

int acutPrintf(const ACHAR* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    va_list counted;
    va_copy(counted, arguments);
    // Uses the C runtime's wide functions: %s is a wide string, as in AutoCAD.
    const int length = _vscwprintf(format, counted);
    va_end(counted);
    std::wstring wide(static_cast<size_t>(std::max(length, 0)) + 1, L'\0');
    _vsnwprintf(wide.data(), wide.size(), format, arguments);
    va_end(arguments);
    wide.pop_back();
    const std::string text = bench::Ansi(wide);
    bench::ArxCall call("acutPrintf", text);
    if (call.fails()) return call.failed(RTERROR);
    bench::PrintText(text);
    return RTNORM;
}
