// The rows of digest, Base64 and download, each with its peer.
#pragma once

#include "Table.h"

// Within AutoCAD, and after the other rows: blocks of many megabytes change the heap.
void LibraryRows(Table& table);

// Downloads with nothing but the calls to WinINet.
void BareDownload(const char* url, const char* path);
