// Required library; nothing in this module calls it.
// Text of one window message for tracing: "NAME(parameters)", or "0x....(" for a message that the name table lacks. The
// parameters are decoded in the tracer's own way, also where the documented meaning differs.
#pragma once

#include <windows.h>

#include <string>

std::string DescribeWindowMessage(UINT message, WPARAM wParam, LPARAM lParam);
