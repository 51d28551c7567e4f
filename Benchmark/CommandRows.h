// The rows of the whole command as the user waits for it, against the same calls to Klimora, the record database and
// the web server without the module. All of these are fakes; the real ones take longer.
#pragma once

#include "Table.h"

// Requires AutoCAD and Klimora to run. Opens its own projects.
void CommandRows(Table& table);
