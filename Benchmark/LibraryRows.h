// The rows for digest, Base64 and download, each with its peer.
#pragma once

#include "Table.h"

// Requires AutoCAD to run. Run after the other rows, because blocks of many megabytes change the heap.
void LibraryRows(Table& table);

// Downloads with bare WinINet calls.
void BareDownload(const char* url, const char* path);
