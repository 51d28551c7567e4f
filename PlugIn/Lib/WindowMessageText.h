// Text of one window message for tracing: "NAME(parameters)", or "0x....(" for a message that the name table lacks. The
// readings of the parameters are the tracer's own, also where they differ from the documented meaning of the message.
#pragma once

#include <windows.h>

#include <string>

std::string DescribeWindowMessage(UINT message, WPARAM wParam, LPARAM lParam);
