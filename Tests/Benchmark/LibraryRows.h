// The rows of loading, digest, Base64 and download, each with its peer.
#pragma once

#include "Table.h"

void LibraryRows(Table& table);  // before anything else has loaded the module
void DownloadRow(Table& table);  // within AutoCAD
