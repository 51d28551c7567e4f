// The rows of loading, digest, Base64 and download, each with its peer.
#pragma once

#include "Table.h"

// Before anything else has loaded the module.
void LoadRow(Table& table);
// Within AutoCAD, and after the other rows: blocks of many megabytes change the heap.
void LibraryRows(Table& table);
