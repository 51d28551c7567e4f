// Removal of a folder with everything in it.
#pragma once

// Nonzero when the folder itself was removed. `path` has no trailing backslash; files and folders whose path is longer
// than MAX_PATH allows are left, as is whatever else cannot be deleted. A junction or link is removed itself; what it
// leads to stays.
int DeleteDirectoryTree(const char* path);
