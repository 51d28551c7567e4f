// The debug log "pdbg_log.txt" beside the executable of the process, or in the temporary folder when it cannot be
// opened there. It is opened by the first report that needs it, restarts empty when it has grown beyond 16384 bytes,
// and carries a stamp at start and stop. When neither place can take it, it stays closed and the next report tries
// again. The module closes it when it is unloaded.
#pragma once

// 0 when the log is (or already was) open, -1 when it could not be opened.
int OpenDebugLog();
// Writes the stop stamp and closes; 0, also when the log was closed.
int CloseDebugLog();
void FlushDebugLog();

// Appends a line, opening the log when it is closed. The line is its own format (FormatOwnText).
void WriteDebugLog(const char* line);
