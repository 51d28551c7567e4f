// The rows of the command as the user waits for it, against the same calls to Klimora, the record database and the web
// server without the module. All of these are the fakes, on this machine; the user's own take longer.
#pragma once

#include "Table.h"

// Within AutoCAD, and with Klimora running. Opens projects of its own.
void CommandRows(Table& table);
