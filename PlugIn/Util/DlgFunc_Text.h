// Exported for other modules (gwgetsubstring); the rest is a required library that nothing in this module calls.
// Functions on narrow strings in the caller's buffers: fields of a separated string, trailing blanks, bounds of a typed
// number, filters of file dialogs.
#pragma once

#include <cstdint>
#include <string>

// Copies field `index` (0-based) of `source` into `destination` of `size` characters, truncated to fit with its
// terminator. Returns the position of the next field or of the terminator, or null with an empty destination when there
// is no such field. An empty rest after the last separator is not a field. `destination` must have at least one
// character even if `size` is smaller. Exported undecorated.
extern "C" const char* gwgetsubstring(char* destination, const char* source, char separator, int32_t index,
                                      int32_t size) noexcept;

// Replaces blanks, line ends and terminators at the end of `length` characters by terminators. Returns the buffer.
char* TrimTrailingBlanks(char* buffer, int length);

// Replaces a number outside the bounds by the nearer bound, without decimals. Returns true if it did. The buffer must
// have space for the longer bound.
bool ClampNumberText(char* text, double minimum, double maximum);

// Converts a filter written with "|" between and after its parts to the form of the file dialogs: a terminator after
// each part and two at the end, even if the last "|" is missing.
std::string OpenFileFilter(const char* filter);
