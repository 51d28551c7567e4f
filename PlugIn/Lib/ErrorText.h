// Required library; nothing in this module calls it.
// Text of a Windows error code: the system's message without its line end, directly followed by
// "WinAPI last error = <code> ". For a code that the system does not know only the second half.
#pragma once

#include <cstdint>
#include <string>

std::string ErrorText(uint32_t code);
// ErrorText of GetLastError().
std::string LastErrorText();
