// The host's texts and result buffers. Nothing that was handed out is really freed before AutoCAD stops: released
// memory is filled with a pattern and remembered, so that a second release or a foreign pointer is told from a good
// one.
#pragma once

#include <string>

#include "adsdef.h"

namespace bench {

// A text for the module to keep; the balance owes "string NAME" until acutDelString.
wchar_t* HandOut(const std::wstring& text, const std::string& name);
// A text inside a chain: goes with the chain, and keeps it owed while it lives.
wchar_t* HandOutInChain(const std::wstring& text, int chain);
// Releases a text of either kind; false, with an accusation, when it is none or was released before.
bool ReleaseString(void* text, const char* by);

// A new chain for the module; the balance owes "resbuf chain NAME" until its last node and text are released.
int BeginChain(const std::string& name);
resbuf* AddNode(int chain, resbuf* last, short type);
void AddChainPart(int chain);
void ReleaseChainPart(int chain);
// Is this node one that the host made and that is not released? Accuses when not.
bool LivingNode(const resbuf* node, const char* by);

// The process's strings and chains, forgotten and freed.
void FreeQuarantine();

}  // namespace bench
