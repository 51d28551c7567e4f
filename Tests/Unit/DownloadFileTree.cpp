#include <gtest/gtest.h>

#include <algorithm>

#include "RecordedCalls.h"
#include "TestFiles.h"
#include "Util/FileTree.h"

using std::filesystem::create_directories;

TEST(DownloadFileTree, DeletesAFolderWithItsContents) {
    const TestFolder base;
    const std::string top = base.file("work");
    create_directories(top + "\\empty");
    create_directories(top + "\\deep\\deeper");
    for (const char* name : {"\\output.xml", "\\deep\\.hidden", "\\deep\\deeper\\read only.kpd"})
        WriteWholeFile(top + name, "content");
    SetFileAttributesA((top + "\\deep\\deeper\\read only.kpd").c_str(), FILE_ATTRIBUTE_READONLY);
    WriteWholeFile(base.file("sibling"), "stays");
    RecordedCalls calls;
    calls.Record("FindClose", FindClose);
    EXPECT_NE(DeleteDirectoryTree(top.c_str()), 0);
    const std::string closed = calls.Take();
    EXPECT_EQ(std::count(closed.begin(), closed.end(), '\n'), 8) << "two searches for each folder";
    EXPECT_FALSE(Exists(top));
    EXPECT_TRUE(Exists(base.file("sibling")));
}

TEST(DownloadFileTree, KeepsOnlyTheFoldersOfUndeletableFiles) {
    const TestFolder base;
    const std::string top = base.file("work");
    create_directories(top + "\\locked");
    WriteWholeFile(top + "\\locked\\file", "x");
    WriteWholeFile(top + "\\other", "x");
    const HANDLE locked =
        CreateFileA((top + "\\locked\\file").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(DeleteDirectoryTree(top.c_str()), 0);
    EXPECT_FALSE(Exists(top + "\\other"));
    EXPECT_TRUE(Exists(top + "\\locked\\file"));
    CloseHandle(locked);
    EXPECT_NE(DeleteDirectoryTree(top.c_str()), 0);
}

TEST(DownloadFileTree, NeverEntersLinks) {
    const TestFolder base;
    const std::string top = base.file("work"), link = top + "\\link", file = link + "\\project.xml";
    create_directories(link);
    WriteWholeFile(file, "elsewhere");
    WriteWholeFile(top + "\\other", "x");
    const auto deleteAs = [&](DWORD tag, const std::string& path) {
        RecordedCalls calls;
        calls.Record("FindFirstFileA", FindFirstFileA, [&](const char* pattern, WIN32_FIND_DATAA* entry) {
            std::wstring wide(pattern, pattern + std::strlen(pattern));
            WIN32_FIND_DATAW found = {};
            const HANDLE search = FindFirstFileW(wide.c_str(), &found);
            *entry = {};
            entry->dwFileAttributes = found.dwFileAttributes;
            if (pattern == link) {
                entry->dwFileAttributes |= FILE_ATTRIBUTE_REPARSE_POINT;
                entry->dwReserved0 = tag;
            }
            return search;
        });
        return DeleteDirectoryTree(path.c_str());
    };
    for (const DWORD tag : {IO_REPARSE_TAG_SYMLINK, IO_REPARSE_TAG_MOUNT_POINT}) {
        EXPECT_EQ(deleteAs(tag, top), 0);
        EXPECT_EQ(deleteAs(tag, link), 0);
        EXPECT_TRUE(Exists(file)) << "the link's target stays";
    }
    EXPECT_FALSE(Exists(top + "\\other"));
    const DWORD kCloudFile = 0x9000001A;
    EXPECT_NE(deleteAs(kCloudFile, link), 0) << "a cloud placeholder is an ordinary folder";
    create_directories(link);
    EXPECT_NE(deleteAs(IO_REPARSE_TAG_SYMLINK, link), 0) << "a link itself is deleted";
}

TEST(DownloadFileTree, DeletesNothingWhenTheSearchFails) {
    const TestFolder base;
    EXPECT_EQ(DeleteDirectoryTree(nullptr), 0);
    EXPECT_EQ(DeleteDirectoryTree(""), 0);
    EXPECT_EQ(DeleteDirectoryTree(base.file("none").c_str()), 0);
    EXPECT_EQ(DeleteDirectoryTree((base.path() + "\\" + std::string(300, 'x')).c_str()), 0);
    RecordedCalls calls;
    calls.Record("FindNextFileA", FindNextFileA, [](HANDLE, WIN32_FIND_DATAA*) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    });
    EXPECT_EQ(DeleteDirectoryTree(base.path().c_str()), 0);
    EXPECT_TRUE(Exists(base.path()));
}
