#include <windows.h>
#include <io.h>
#include <sys/stat.h>

#include "FileTree.h"

#include <cstring>
#include <string>

#include "Lib/Handles.h"

namespace {

// Windows' "A" calls take paths of MAX_PATH characters, terminator included.
bool IsTooLong(const std::string& path) {
    return path.size() >= MAX_PATH;
}

// A junction or symbolic link: what it leads to is not ours.
bool IsLink(const char* path) {
    const DWORD attributes = GetFileAttributesA(path);
    return attributes != INVALID_FILE_ATTRIBUTES && attributes & FILE_ATTRIBUTE_REPARSE_POINT;
}

void DeleteEntry(const std::string& path, DWORD attributes) {
    if (attributes & FILE_ATTRIBUTE_DIRECTORY) {
        DeleteDirectoryTree(path.c_str());
        RemoveDirectoryA(path.c_str());
        return;
    }
    if (attributes & FILE_ATTRIBUTE_READONLY) _chmod(path.c_str(), _S_IWRITE);
    DeleteFileA(path.c_str());
}

// True when the search reached its end.
bool DeleteEntries(const std::string& folder) {
    WIN32_FIND_DATAA entry = {};
    const FindHandle search(FindFirstFileA((folder + "\\*").c_str(), &entry));
    if (!search) return false;
    // The first entry is ".", so the work begins with the second.
    while (FindNextFileA(search.get(), &entry)) {
        if (std::strcmp(entry.cFileName, ".") == 0 || std::strcmp(entry.cFileName, "..") == 0) continue;
        const std::string path = folder + "\\" + entry.cFileName;
        if (!IsTooLong(path)) DeleteEntry(path, entry.dwFileAttributes);
    }
    return GetLastError() == ERROR_NO_MORE_FILES;
}

}  // namespace

int DeleteDirectoryTree(const char* path) {
    if (!path || !*path) return 0;
    const std::string folder = path;
    if (IsTooLong(folder + "\\*")) return 0;
    return IsLink(path) || DeleteEntries(folder) ? RemoveDirectoryA(path) : 0;
}
