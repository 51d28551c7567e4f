// Recursive removal of a folder.
#pragma once

// Deletes a folder and its contents. Returns nonzero when the folder itself is gone. `path` has no trailing backslash.
// Leaves entries that cannot be deleted or whose path exceeds MAX_PATH. Removes a junction or link, not its target.
int DeleteDirectoryTree(const char* path);
