// The rows of loading, digest, Base64 and download, each with its peer.
#pragma once

#include "Table.h"

void LoadRow(Table& table);  // before anything else has loaded the module
void LibraryRows(
    Table& table);  // within AutoCAD; after the others, since their blocks of many megabytes change the heap
