// Small work on narrow texts in buffers: fields of a separated text, trailing blanks, bounds of a typed number, filters
// of file dialogs. Buffers belong to the caller.
#pragma once

#include <cstdint>
#include <string>

// Copies field `index` (0-based) of `source` into `destination` of `size` characters, cut to fit with its terminator.
// Returns the position of the next field (or of the terminator); null and an empty destination when there is no such
// field. What follows the last separator is a field only when it is not empty. Exported undecorated. `destination` has
// room for one character even when `size` says less.
extern "C" const char* gwgetsubstring(char* destination, const char* source, char separator, int32_t index,
                                      int32_t size) noexcept;

// Replaces blanks, line ends and terminators at the end of `length` characters by terminators; returns the buffer.
char* TrimTrailingBlanks(char* buffer, int length);

// Replaces a number outside the bounds by the bound, without decimals; true when it did. The buffer must hold the
// longer bound.
bool ClampNumberText(char* text, double minimum, double maximum);

// A filter written with "|" between and after its parts, as the file dialogs want it: parts ended by terminators, and
// two terminators at the very end whatever was written.
std::string OpenFileFilter(const char* filter);
