// The character type of all ObjectARX strings. It is always wide; there are no narrow overloads.
#pragma once

typedef wchar_t ACHAR;

#define ACRX_T(x) L##x
