#include "Lib/ErrorText.h"

#include <windows.h>

#include "Lib/FormatText.h"

std::string ErrorText(uint32_t code) {
    const std::string number = FormatString("WinAPI last error = %d ", static_cast<int>(code));
    char buffer[8192] = "";
    FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code,
                   MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), buffer, static_cast<DWORD>(sizeof buffer - number.size()),
                   nullptr);
    std::string text = buffer;
    while (!text.empty() && (text.back() == '\r' || text.back() == '\n'))
        text.pop_back();
    return text + number;
}

std::string LastErrorText() {
    return ErrorText(GetLastError());
}
