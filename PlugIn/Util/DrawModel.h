// Required library; nothing in this module calls it.
// Parameters of a KModel, the host's parametric geometry model, are one text: "L=900;H=300;". The ";" after the last
// pair is optional. Both functions change the text in the caller's buffer. Names are case-sensitive.
#pragma once

#include <cstdint>

// Replaces the value of every pair of that name, or appends the pair. `paramsLen` is the size of `params`. Returns 0,
// or -1 without a change when `paramsLen` is not from 0 to 1024. Truncates the text to 1024 characters and a pair to
// 127, gives tokens without "=" an empty value and drops empty tokens. A text that fills the buffer has no terminator.
int SetKModelParam(char* params, int32_t paramsLen, const char* name, const char* value);

// Deletes from the first occurrence of name and "=" through the next ";". Returns 0, or -1 when there is none. The
// search also matches within a name, so no name may be a suffix of another.
int RemoveKModelParam(char* params, const char* name);
