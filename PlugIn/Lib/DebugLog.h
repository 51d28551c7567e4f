// The debug log "pdbg_log.txt" beside the executable of the process, or in the temporary folder when it cannot be
// opened there. The first report that needs it opens it; a log of more than 16384 bytes restarts empty. A stamp marks
// start and stop. When neither folder works, the log stays closed and the next report tries again. Unloading the module
// closes it. Nothing here allocates heap memory.
#pragma once

// Returns 0 when the log is open, also when it was open before; -1 when it cannot be opened.
int OpenDebugLog() noexcept;
// Writes the stop stamp and closes the log. Returns 0, also when the log was closed before.
int CloseDebugLog() noexcept;
void FlushDebugLog() noexcept;

// Appends a text verbatim; opens the log when it is closed.
void WriteDebugLog(const char* text) noexcept;
