// The address to which the function in which it stands returns.
#pragma once

#if defined(_MSC_VER)
#include <intrin.h>
#define CALLER_ADDRESS() _ReturnAddress()
#else
#define CALLER_ADDRESS() __builtin_return_address(0)
#endif
