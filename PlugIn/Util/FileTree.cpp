#include "Util/FileTree.h"

#include <windows.h>
#include <io.h>
#include <sys/stat.h>

#include <cstdio>
#include <cstring>

#include "Lib/Handles.h"
#include "Lib/Text.h"

namespace {

// Joins folder and name without allocating, so that the folder can be removed when memory runs out. Returns false when
// the path exceeds MAX_PATH.
bool Join(char (&path)[MAX_PATH], const char* folder, const char* name) {
    const int length = std::snprintf(path, sizeof path, "%s\\%s", folder, name);
    return length >= 0 && length < MAX_PATH;
}

// Returns true for a junction or symbolic link, whose target must stay. Other reparse points, such as placeholders of a
// cloud folder, contain what they list.
bool IsLink(const char* path) {
    WIN32_FIND_DATAA entry = {};
    const FindHandle found(FindFirstFileA(path, &entry));
    return found && entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT &&
           (entry.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT || entry.dwReserved0 == IO_REPARSE_TAG_SYMLINK);
}

void DeleteEntry(const char* path, DWORD attributes) {
    if (attributes & FILE_ATTRIBUTE_DIRECTORY) {
        DeleteDirectoryTree(path);
        RemoveDirectoryA(path);
        return;
    }
    if (attributes & FILE_ATTRIBUTE_READONLY) _chmod(path, _S_IWRITE);
    DeleteFileA(path);
}

// Returns true when it has seen every entry.
bool DeleteEntries(const char* folder) {
    char path[MAX_PATH];
    if (!Join(path, folder, "*")) return false;
    WIN32_FIND_DATAA entry = {};
    const FindHandle search(FindFirstFileA(path, &entry));
    if (!search) return false;
    // The first entry is ".", which is skipped.
    while (FindNextFileA(search.get(), &entry)) {
        if (std::strcmp(entry.cFileName, ".") == 0 || std::strcmp(entry.cFileName, "..") == 0) continue;
        if (Join(path, folder, entry.cFileName)) DeleteEntry(path, entry.dwFileAttributes);
    }
    return GetLastError() == ERROR_NO_MORE_FILES;
}

}  // namespace

int DeleteDirectoryTree(const char* path) {
    if (IsNullOrEmpty(path)) return 0;
    return IsLink(path) || DeleteEntries(path) ? RemoveDirectoryA(path) : 0;
}
