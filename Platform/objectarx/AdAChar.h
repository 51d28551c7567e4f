// The character of every text at an ObjectARX border: wide, always. There are no narrow overloads.
#pragma once

typedef wchar_t ACHAR;

#define ACRX_T(x) L##x
