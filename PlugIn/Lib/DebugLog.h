// The debug log "pdbg_log.txt" beside the executable of the process, or in the temporary folder when it cannot be
// opened there. It is opened by the first report that needs it, restarts empty when it has grown beyond 16384 bytes,
// and carries a stamp at start and stop. When neither place can take it, it stays closed and the next report tries
// again. The module closes it when it is unloaded. Nothing here takes memory of the heap for itself.
#pragma once

// 0 when the log is (or already was) open, -1 when it could not be opened.
int OpenDebugLog() noexcept;
// Writes the stop stamp and closes; 0, also when the log was closed.
int CloseDebugLog() noexcept;
void FlushDebugLog() noexcept;

// Appends a text as it stands, opening the log when it is closed.
void WriteDebugLog(const char* text) noexcept;
