// The compiler's check of printf arguments, in front of a function's declaration: `format` is the name of the parameter
// that carries the format, `position` its number and `first` that of the first argument behind it. Numbers count from
// 1, and in a member function from 2, where the object is the first.
//   PRINTF_FORMAT(format, 1, 2) std::string FormatString(const char* format, ...);
#pragma once

#if defined(_MSC_VER)
#include <sal.h>
#define PRINTF_FORMAT(format, position, first) _At_(format, _Printf_format_string_)
#else
// The C++ library of mingw-w64 formats as C99 says, not as the runtime of Windows does.
#define PRINTF_FORMAT(format, position, first) __attribute__((format(gnu_printf, position, first)))
#endif
