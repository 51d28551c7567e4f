// Texts and result buffers that AutoCAD hands out. Nothing is really freed before AutoCAD stops: released memory is
// filled with a pattern and remembered, so that a second release or a foreign pointer is told from a good one.
#pragma once

#include <string>

#include "adsdef.h"

namespace bench {

// Fills what AutoCAD does not promise to set.
inline constexpr int kSentinel = 0xDD;

// A text for the module to keep; the balance owes "string NAME" until acutDelString.
wchar_t* AllocateForCaller(const std::wstring& text, const std::string& name);
// A text inside a chain: goes with the chain, and keeps it owed while it lives.
wchar_t* AllocateInChain(const std::wstring& text, int chain);
// Accuses when the text is none that AutoCAD handed out, or was released before.
void ReleaseString(void* text, const char* by);

// A new chain for the module; the balance owes "resbuf chain NAME" until its last node and text are released, so that a
// node left out and a text overwritten are found.
int BeginChain(const std::string& name);
// The next node is null, the value a sentinel.
resbuf* AddNode(int chain, resbuf* last, short type);
// Is this node no released one? Accuses otherwise. The caller's own buffer is good where nothing is released.
bool LivingNode(const resbuf* node, const char* by);
// The node that follows the released one; false, with an accusation, when AutoCAD did not make it or it was released
// before.
bool ReleaseNode(resbuf*& node, const char* by);

// Which group codes carry a text.
bool HoldsText(short type);

// All of the process's texts and chains, forgotten and freed.
void FreeMemory();

}  // namespace bench
