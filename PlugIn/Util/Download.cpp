#include "Util/Download.h"

#include <shellapi.h>
#include <wininet.h>

#include <io.h>

#include <cstdlib>
#include <stdexcept>

#include "Lib/CommandLine.h"
#include "Lib/Handles.h"
#include "Lib/ModuleIdentity.h"
#include "Lib/Text.h"

namespace {

constexpr DWORD kOpenUrlFlags = INTERNET_FLAG_RELOAD | INTERNET_FLAG_NO_CACHE_WRITE | INTERNET_FLAG_NO_UI;
constexpr DWORD kReadSize = 1024;
constexpr DWORD kTimeout = 30000;  // milliseconds

using InternetHandle = Owner<HINTERNET, InternetCloseHandle>;

// Keeps a server that accepts and never answers from blocking AutoCAD. If Windows refuses a limit, its default applies.
void SetTimeouts(HINTERNET session) {
    for (const DWORD option :
         {INTERNET_OPTION_CONNECT_TIMEOUT, INTERNET_OPTION_SEND_TIMEOUT, INTERNET_OPTION_RECEIVE_TIMEOUT}) {
        DWORD limit = kTimeout;
        InternetSetOptionA(session, option, &limit, sizeof limit);
    }
}

class DownloadError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

// The destructor closes address, session and file, in this order: members are destroyed last to first.
class Download {
 public:
    int Run(const char* url, const char* savePath) {
        try {
            Open(url, savePath);
            Transfer();
        } catch (const DownloadError& error) {
            PrintCommandLine("%s: Error DownloadFile: %s\n", kDisplayName, error.what());
        } catch (...) {
            PrintCommandLine("%s: Error downloading file\n", kDisplayName);
            status_ = -100;
        }
        return status_;
    }

 private:
    [[noreturn]] void Fail(int status, const char* diagnostic) {
        status_ = status;
        throw DownloadError(diagnostic);
    }

    void Open(const char* url, const char* savePath) {
        if (!url) Fail(-1, "Wrong parameter Url == NULL\n");
        if (!savePath) Fail(-1, "Wrong parameter SaveFileName == NULL\n");

        // INVALID_HANDLE_VALUE is not null, so the destructor passes it to CloseHandle, which fails harmlessly.
        file_.reset(CreateFileA(savePath, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
        if (file_.get() == INVALID_HANDLE_VALUE) Fail(-1, "Can't create file");

        DWORD connection = 7;
        if (!InternetGetConnectedState(&connection, 0)) Fail(-2, "There is no connection to internet");

        session_.reset(InternetOpenA("http generic", INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0));
        if (!session_) Fail(-3, "Can't establish connection to internet");
        SetTimeouts(session_.get());

        address_.reset(InternetOpenUrlA(session_.get(), url, nullptr, 0, kOpenUrlFlags, 0));
        if (!address_) Fail(-4, "Can't open file from internet");
    }

    void Transfer() {
        char buffer[kReadSize];
        for (;;) {
            DWORD read = 0;
            status_ = InternetReadFile(address_.get(), buffer, sizeof buffer, &read);
            if (status_ != 1 || read == 0) return;
            DWORD written = 0;
            if (!WriteFile(file_.get(), buffer, read, &written, nullptr)) Fail(-5, "Can't write to file");
            if (written < read) Fail(-6, "Can't write to file");
        }
    }

    int status_ = 0;
    KernelHandle file_;
    InternetHandle session_;
    InternetHandle address_;
};

}  // namespace

int DownloadFile(const char* url, const char* savePath) {
    return Download().Run(url, savePath);
}

int DeleteAndDownload(const char* url, const char* savePath) {
    if (_access(savePath, 0) == 0) _unlink(savePath);
    return DownloadFile(url, savePath);
}

int OpenWebBrowser(const char* url, HWND owner) {
    if (IsNullOrEmpty(url)) {
        PrintCommandLine("%s: OpenWebBrowser: Wrong parameter Url is empty.\n", kDisplayName);
        return -1;
    }
    SHELLEXECUTEINFOA request = {};
    request.cbSize = sizeof request;
    request.fMask = SEE_MASK_NOCLOSEPROCESS;
    request.hwnd = owner;
    request.lpVerb = "open";
    request.lpFile = url;
    request.lpParameters = "";
    request.nShow = SW_RESTORE;
    const BOOL started = ShellExecuteExA(&request);
    // Closing the handle does not end the browser.
    const KernelHandle process(request.hProcess);
    return started == TRUE ? 0 : -1;
}

std::string UrlDecode(const char* text) {
    std::string decoded;
    for (const char* at = OrEmpty(text); *at; ++at) {
        if (*at != '%') {
            decoded += *at;
            continue;
        }
        char number[] = "0x\0\0";
        for (int i = 2; i < 4 && at[1]; ++i)
            number[i] = *++at;
        decoded += static_cast<char>(std::strtol(number, nullptr, 16));
    }
    return decoded;
}
