// The parameters of a KModel, the host's parametric geometry model, travel as one text: "L=900;H=300;", each pair
// followed by ";" (behind the last it may be missing). Both functions change such a text in the caller's buffer.
// Parameter names are case-sensitive; tokens without "=" have an empty value, empty tokens are dropped.
#pragma once

#include <cstdint>

// Replaces the value of every pair of that name, or appends the pair. `paramsLen` is the size of `params`, 0 to 1024
// characters; outside of that the result is -1 and nothing changes, else 0. The text is cut to 1024 characters, a
// pair to 127. The buffer must be larger than the new text: one that does not fit is left without a terminator.
int SetKModelParam(char* params, int32_t paramsLen, const char* name, const char* value);

// Deletes the first place where name and "=" stand, up to the next ";". -1 when they stand nowhere, else 0. The search
// is not bound to the start of a pair: callers use names that are not suffixes of one another.
int RemoveKModelParam(char* params, const char* name);
