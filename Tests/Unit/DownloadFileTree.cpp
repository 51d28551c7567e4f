#include <gtest/gtest.h>

#include "RecordedCalls.h"
#include "TestFiles.h"
#include "Util/FileTree.h"

using std::filesystem::create_directories;

TEST(DownloadFileTree, FolderGoesWithEverythingInIt) {
    const TestFolder base;
    const std::string top = base.file("work");
    create_directories(top + "\\empty");
    create_directories(top + "\\deep\\deeper");
    for (const char* name : {"\\output.xml", "\\deep\\.hidden", "\\deep\\deeper\\read only.kpd"})
        WriteWholeFile(top + name, "content");
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
    create_directories(top + "\\held");
    WriteWholeFile(top + "\\held\\file", "x");
    WriteWholeFile(top + "\\other", "x");
    const HANDLE held =
        CreateFileA((top + "\\held\\file").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(DeleteDirectoryTree(top.c_str()), 0);
    EXPECT_FALSE(Exists(top + "\\other"));
    EXPECT_TRUE(Exists(top + "\\held\\file"));
    CloseHandle(held);
    EXPECT_NE(DeleteDirectoryTree(top.c_str()), 0);
}

TEST(DownloadFileTree, LinksAreNeverEntered) {
    const TestFolder base;
    const std::string top = base.file("work"), link = top + "\\link", file = link + "\\project.xml";
    create_directories(link);
    WriteWholeFile(file, "elsewhere");
    WriteWholeFile(top + "\\other", "x");
    {
        RecordedCalls calls;
        calls.Record("GetFileAttributesA", GetFileAttributesA, [&](const char* path) -> DWORD {
            return FILE_ATTRIBUTE_DIRECTORY | (path == link ? FILE_ATTRIBUTE_REPARSE_POINT : 0u);
        });
        EXPECT_EQ(DeleteDirectoryTree(top.c_str()), 0);
        EXPECT_EQ(DeleteDirectoryTree(link.c_str()), 0);
        EXPECT_EQ(std::remove(file.c_str()), 0) << "what it leads to stays";
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
