#include <windows.h>

#include "CommandLine.h"

#include <acutads.h>

#include <cstdarg>
#include <string>

#include "FormatText.h"
#include "Text.h"

namespace {
// A buffer of 8192 characters, terminator included.
constexpr size_t kLineLimit = 8191;
}  // namespace

int PrintCommandLine(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    std::string text = FormatArguments(format, arguments);
    va_end(arguments);
    if (text.size() > kLineLimit) text.resize(kLineLimit);
    return acutPrintf(L"%s", Widen(text).c_str());
}
