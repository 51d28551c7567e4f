// Text of a Windows error code: the system's message without its line end, directly followed by
// "WinAPI last error = <code> ". A code that the system does not know gives the second half alone.
#pragma once

#include <cstdint>
#include <string>

std::string ErrorText(uint32_t code);
// ErrorText of GetLastError().
std::string LastErrorText();
