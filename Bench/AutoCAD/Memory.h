// Strings and result buffers that AutoCAD allocates for the module. Released memory is filled with a pattern and kept
// until AutoCAD stops, so that double releases and foreign pointers are detected.
#pragma once

#include <string>

#include "adsdef.h"

namespace bench {

// Fills outputs that AutoCAD does not guarantee to set.
inline constexpr int kSentinel = 0xDD;

// Allocates a string that the module must release; tracks "string NAME" until acutDelString.
wchar_t* AllocateForCaller(const std::wstring& text, const std::string& name);
// Allocates a string that belongs to a chain. The chain stays outstanding until the string is released.
wchar_t* AllocateInChain(const std::wstring& text, int chain);

// Begins a chain for the module. Tracks "resbuf chain NAME" until its last node and string are released, which detects
// a skipped node and an overwritten string.
int BeginChain(const std::string& name);
// Appends a node with a null next pointer and a sentinel value.
resbuf* AddNode(int chain, resbuf* last, short type);
// Returns false and reports a violation for a released node. A buffer of the caller's own passes.
bool CheckNode(const resbuf* node, const char* by);

// Whether a group code's value is a string.
bool IsStringType(short type);

// Frees all strings and chains of the process.
void FreeMemory();

}  // namespace bench
