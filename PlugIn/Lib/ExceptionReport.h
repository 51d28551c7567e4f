// The end of an operation that works with exceptions: prints the exception in flight on the command line as
// "\n<display name>: <message> <source>(<line>):<function> <text of the exception>\n". Call it only from inside a
// catch-all handler. It swallows the exception and returns, also when there is no memory left or nothing can be
// printed; nothing goes to the
// debug log. Null texts are empty ones.
#pragma once

void ReportException(const char* message, const char* source, int line, const char* function) noexcept;
