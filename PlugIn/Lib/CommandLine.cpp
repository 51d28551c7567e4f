#include "Lib/CommandLine.h"

#include <windows.h>

#include <cstdarg>

#include "Lib/FormatText.h"
#include "acutads.h"

int PrintCommandLine(const char* format, ...) {
    BoundedText text;
    va_list arguments;
    va_start(arguments, format);
    text.AppendArguments(format, arguments);
    va_end(arguments);
    wchar_t wide[8192] = L"";
    MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, wide, 8192);
    return acutPrintf(L"%s", wide);
}
