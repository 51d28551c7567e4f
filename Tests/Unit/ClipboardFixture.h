// Vocabulary of the clipboard tests: an owner window, the peer process on the clipboard's other side, and an empty
// clipboard before and after each case.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "Lib/Handles.h"
#include "TestFiles.h"

class ClipboardTest : public testing::Test {
 protected:
    ClipboardTest()
        : owner_(CreateWindowExA(0, "Static", "", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr)) {
        Empty();
    }
    ~ClipboardTest() override {
        Empty();
        DestroyWindow(owner_);
    }

    HWND owner() const { return owner_; }

    static void Empty() {
        ASSERT_TRUE(OpenClipboard(nullptr));
        EXPECT_TRUE(EmptyClipboard());
        CloseClipboard();
    }
    static std::string ReadByPeer(const std::string& format, size_t count) {
        return RunPeer("read " + format + " " + std::to_string(count));
    }
    static void WriteByPeer(const std::string& format, const std::string& hex) {
        RunPeer("write " + format + " " + hex);
    }

 private:
    static std::string RunPeer(const std::string& arguments) {
        const TestFolder folder;
        SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
        KernelHandle output(CreateFileA(folder.file("output").c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited,
                                        CREATE_ALWAYS, 0, nullptr));
        STARTUPINFOA start = {};
        start.cb = sizeof start;
        start.dwFlags = STARTF_USESTDHANDLES;
        start.hStdOutput = output.get();
        PROCESS_INFORMATION information = {};
        std::string line = "clipboard_peer.exe " + arguments;
        if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &information)) {
            ADD_FAILURE() << "clipboard_peer.exe cannot be started: error " << GetLastError();
            return {};
        }
        const KernelHandle thread(information.hThread);
        const KernelHandle process(information.hProcess);
        DWORD exitCode = STILL_ACTIVE;
        if (WaitForSingleObject(process.get(), 20000) != WAIT_OBJECT_0) TerminateProcess(process.get(), 99);
        GetExitCodeProcess(process.get(), &exitCode);
        EXPECT_EQ(exitCode, 0u) << line;
        output.reset();
        return ReadWholeFile(folder.file("output"));
    }

    HWND owner_;
};
