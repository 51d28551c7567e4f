#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "RecordedCalls.h"
#include "TestFiles.h"
#include "Util/FileTree.h"

namespace {

void MakeFolder(const std::string& path) {
    ASSERT_TRUE(CreateDirectoryA(path.c_str(), nullptr)) << path;
}

}  // namespace

TEST(DownloadFileTree, FolderGoesWithEverythingInIt) {
    const TestFolder base;
    const std::string top = base.file("work");
    MakeFolder(top);
    MakeFolder(top + "\\empty");
    MakeFolder(top + "\\deep");
    MakeFolder(top + "\\deep\\deeper");
    for (const char* name : {"\\output.xml", "\\deep\\.hidden", "\\deep\\deeper\\read only.kpd"}) {
        WriteWholeFile(top + name, "content");
    }
    SetFileAttributesA((top + "\\deep\\deeper\\read only.kpd").c_str(), FILE_ATTRIBUTE_READONLY);
    WriteWholeFile(base.file("neighbour"), "stays");
    RecordedCalls calls;
    calls.Record("FindClose", FindClose);
    EXPECT_NE(DeleteDirectoryTree(top.c_str()), 0);
    EXPECT_EQ(calls.Take(), "FindClose &\nFindClose &\nFindClose &\nFindClose &\n");
    EXPECT_FALSE(Exists(top));
    EXPECT_TRUE(Exists(base.file("neighbour")));
}

TEST(DownloadFileTree, WhatCannotBeDeletedKeepsItsFoldersOnly) {
    const TestFolder base;
    const std::string top = base.file("work");
    MakeFolder(top);
    MakeFolder(top + "\\held");
    WriteWholeFile(top + "\\held\\file", "x");
    WriteWholeFile(top + "\\other", "x");
    const HANDLE held =
        CreateFileA((top + "\\held\\file").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    EXPECT_EQ(DeleteDirectoryTree(top.c_str()), 0);
    EXPECT_FALSE(Exists(top + "\\other"));
    EXPECT_TRUE(Exists(top + "\\held\\file"));
    CloseHandle(held);
    EXPECT_NE(DeleteDirectoryTree(top.c_str()), 0);
}

TEST(DownloadFileTree, LinksAreNeverEntered) {
    const TestFolder base;
    const std::string top = base.file("work"), link = top + "\\link", file = link + "\\project.xml";
    MakeFolder(top);
    MakeFolder(link);
    WriteWholeFile(file, "elsewhere");
    WriteWholeFile(top + "\\other", "x");
    {
        RecordedCalls calls;
        calls.Record("GetFileAttributesA", GetFileAttributesA, [&](const char* path) -> DWORD {
            return FILE_ATTRIBUTE_DIRECTORY | (path == link ? FILE_ATTRIBUTE_REPARSE_POINT : 0u);
        });
        EXPECT_EQ(DeleteDirectoryTree(top.c_str()), 0);
        EXPECT_EQ(DeleteDirectoryTree(link.c_str()), 0);
        EXPECT_NE(DeleteFileA(file.c_str()), FALSE) << "what it leads to stays";
        EXPECT_NE(DeleteDirectoryTree(link.c_str()), 0) << "a link itself goes";
    }
    EXPECT_FALSE(Exists(top + "\\other"));
}

TEST(DownloadFileTree, NothingIsRemovedWithoutACompleteSearch) {
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
