// Makes the compiler check printf arguments. Write it before a function's declaration: `format` is the name of the
// format parameter, `position` its number, `first` the number of the first argument to format. Numbers start at 1, or
// at 2 in a member function, where the object is number 1.
//   PRINTF_FORMAT(format, 1, 2) std::string FormatString(const char* format, ...);
#pragma once

#if defined(_MSC_VER)
#include <sal.h>
#define PRINTF_FORMAT(format, position, first) _At_(format, _Printf_format_string_)
#else
// The C++ library of mingw-w64 formats according to C99, unlike the Windows runtime.
#define PRINTF_FORMAT(format, position, first) __attribute__((format(gnu_printf, position, first)))
#endif
