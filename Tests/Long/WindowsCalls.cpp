// Every function of Windows that the module imports and a run calls, failing at each of its calls, once and from there
// on.
#include <windows.h>
#include <ole2.h>
#include <wininet.h>

#include <io.h>

#include <cstdio>
#include <set>

#include "SweepBench.h"

namespace {

// Libraries whose functions other sweeps fail, and the C runtime.
constexpr char kOthers[] = "accore.dll|Kbase640.dll|Klimora.Plugins.Statistics.Sorvik.dll|msvcrt.dll";

// No failure is planted in these: they cannot fail or have no way to tell it, or they are the C++ runtime's own means,
// without which it ends the process. CreateProcessA is failed in every sweep.
constexpr char kExcluded[] =
    "GetLastError|SetLastError|GetCurrent*|GetTickCount*|GetSystemTimeAsFileTime|Sleep|OutputDebugStringA|IsDebugger*|"
    "DebugBreak|IsDBCSLeadByteEx|SysFreeString|SysStringLen|OleUninitialize|PostQuitMessage|GetSystemMetrics|"
    "GetSysColor|EnableWindow|ShowWindow|TranslateMessage|DispatchMessageA|PeekMessageA|WaitMessage|SendMessageA|"
    "AddVectored*|RemoveVectored*|InitializeCriticalSection|EnterCriticalSection|TryEnterCriticalSection|"
    "LeaveCriticalSection|DeleteCriticalSection|CreateEventA|SetEvent|ResetEvent|CreateSemaphoreA|ReleaseSemaphore|"
    "DuplicateHandle|GetHandleInformation|GetProcessAffinityMask|SetProcessAffinityMask|GetThread*|SetThread*|"
    "OpenProcess|RaiseException|ResumeThread|SuspendThread|Rtl*|Tls*|Virtual*|WaitForMultipleObjects|"
    "__C_specific_handler|GetModuleHandleW|GetProcAddress|LoadLibraryW|CreateProcessA";

// These no step of the command calls: their places are emptied, so that a call crashes.
constexpr char kUncalled[] =
    "Reg*|InitCommonControls|GetOpenFileNameA|CreateSolidBrush|DeleteObject|SetBk*|SetTextColor|FormatMessageA|"
    "FreeLibrary|LoadLibraryA|GlobalAlloc|GlobalFree|GlobalLock|GlobalSize|GlobalUnlock|LocalFree|SetCurrentDirectoryA|"
    "ShellExecuteExA|CloseClipboard|CreateWindowExA|DestroyIcon|EmptyClipboard|GetClipboardData|"
    "GetDlgCtrlID|IsClipboard*|OpenClipboard|RegisterClip*|SetClipboardData|SetWindowTextA";

using Patch = std::unique_ptr<ImportPatch>;

std::set<std::string> failing;  // names of the functions that can be failed

enum class Work { kNotDone, kDone };  // a failing call that gives something back gives it back all the same

template <class Tag, class Result, class... Arguments>
Patch Failing(HMODULE module, const char* name, Result(WINAPI*)(Arguments...), Result failure, DWORD error,
              Work work = Work::kNotDone) {
    static struct {
        const char* name;
        Result failure;
        DWORD error;
        Work work;
        Result(WINAPI* original)(Arguments...);
    } plan;
    const auto replacement = [](Arguments... arguments) -> Result {
        const bench::Call call(plan.name, "");
        if (!call.fails()) return plan.original(arguments...);
        if (plan.work == Work::kDone) plan.original(arguments...);
        SetLastError(plan.error);
        return plan.failure;
    };
    using Function = Result WINAPI(Arguments...);
    auto patch = std::make_unique<ImportPatch>(name, static_cast<Function*>(replacement), module);
    failing.insert(name);
    plan = {name, failure, error, work, patch->template original<Function>()};
    return patch;
}

// Only the function's name and type are wanted: the program need not import it.
#define FAILING(function, ...) \
    Failing<struct function##Tag>(module, #function, static_cast<decltype(&function)>(nullptr), __VA_ARGS__)

std::vector<Patch> FailingImports(HMODULE module) {
    Patch patches[] = {
        FAILING(CloseHandle, FALSE, ERROR_INVALID_HANDLE, Work::kDone),
        FAILING(CreateDirectoryA, FALSE, ERROR_ACCESS_DENIED),
        FAILING(CreateFileA, INVALID_HANDLE_VALUE, ERROR_ACCESS_DENIED),
        FAILING(DeleteFileA, FALSE, ERROR_SHARING_VIOLATION),
        FAILING(FindClose, FALSE, ERROR_INVALID_HANDLE, Work::kDone),
        FAILING(FindFirstFileA, INVALID_HANDLE_VALUE, ERROR_ACCESS_DENIED),
        FAILING(FindNextFileA, FALSE, ERROR_ACCESS_DENIED),
        FAILING(GetExitCodeProcess, FALSE, ERROR_INVALID_HANDLE),
        FAILING(GetFileAttributesA, INVALID_FILE_ATTRIBUTES, ERROR_ACCESS_DENIED),
        FAILING(GetModuleFileNameA, DWORD{0}, ERROR_MOD_NOT_FOUND),
        FAILING(GetModuleHandleA, static_cast<HMODULE>(nullptr), ERROR_MOD_NOT_FOUND),
        FAILING(GetTempFileNameA, UINT{0}, ERROR_DISK_FULL),
        FAILING(GetTempPathA, DWORD{0}, ERROR_BUFFER_OVERFLOW),
        FAILING(MultiByteToWideChar, 0, ERROR_INVALID_PARAMETER),
        FAILING(RemoveDirectoryA, FALSE, ERROR_SHARING_VIOLATION),
        FAILING(TerminateProcess, FALSE, ERROR_ACCESS_DENIED),
        FAILING(WaitForSingleObject, WAIT_FAILED, ERROR_INVALID_HANDLE),
        FAILING(WideCharToMultiByte, 0, ERROR_INVALID_PARAMETER),
        FAILING(WriteFile, FALSE, ERROR_DISK_FULL),
        FAILING(CLSIDFromProgID, HRESULT{REGDB_E_CLASSNOTREG}, 0),
        FAILING(GetActiveObject, HRESULT{MK_E_UNAVAILABLE}, 0),
        FAILING(OleInitialize, HRESULT{E_OUTOFMEMORY}, 0),
        FAILING(SysAllocStringLen, static_cast<BSTR>(nullptr), 0),
        FAILING(CreateDialogParamA, static_cast<HWND>(nullptr), ERROR_NOT_ENOUGH_MEMORY),
        FAILING(DestroyCursor, FALSE, ERROR_INVALID_CURSOR_HANDLE, Work::kDone),
        FAILING(DestroyWindow, FALSE, ERROR_INVALID_WINDOW_HANDLE, Work::kDone),
        FAILING(DialogBoxParamA, INT_PTR{-1}, ERROR_NOT_ENOUGH_MEMORY),
        FAILING(EndDialog, FALSE, ERROR_INVALID_WINDOW_HANDLE),
        FAILING(GetDlgItem, static_cast<HWND>(nullptr), ERROR_CONTROL_ID_NOT_FOUND),
        FAILING(GetFocus, static_cast<HWND>(nullptr), 0),
        FAILING(GetParent, static_cast<HWND>(nullptr), ERROR_INVALID_WINDOW_HANDLE),
        FAILING(GetWindowLongPtrA, LONG_PTR{0}, ERROR_INVALID_WINDOW_HANDLE),
        FAILING(GetWindowRect, FALSE, ERROR_INVALID_WINDOW_HANDLE),
        FAILING(GetWindowTextA, 0, ERROR_INVALID_WINDOW_HANDLE),
        FAILING(GetWindowTextLengthA, 0, ERROR_INVALID_WINDOW_HANDLE),
        FAILING(KillTimer, FALSE, ERROR_INVALID_PARAMETER, Work::kDone),
        FAILING(LoadCursorW, static_cast<HCURSOR>(nullptr), ERROR_RESOURCE_NAME_NOT_FOUND),
        FAILING(LoadImageA, static_cast<HANDLE>(nullptr), ERROR_RESOURCE_NAME_NOT_FOUND),
        FAILING(MessageBoxA, 0, ERROR_NOT_ENOUGH_MEMORY),
        FAILING(PostMessageA, FALSE, ERROR_NOT_ENOUGH_QUOTA),
        FAILING(SetCursor, static_cast<HCURSOR>(nullptr), 0),
        FAILING(SetDlgItemTextA, FALSE, ERROR_CONTROL_ID_NOT_FOUND),
        FAILING(SetFocus, static_cast<HWND>(nullptr), ERROR_INVALID_WINDOW_HANDLE),
        FAILING(SetForegroundWindow, FALSE, 0),
        FAILING(SetTimer, UINT_PTR{0}, ERROR_NO_SYSTEM_RESOURCES),
        FAILING(SetWindowLongPtrA, LONG_PTR{0}, ERROR_INVALID_WINDOW_HANDLE),
        FAILING(SetWindowPos, FALSE, ERROR_INVALID_WINDOW_HANDLE),
        FAILING(GetFileVersionInfoA, FALSE, ERROR_RESOURCE_DATA_NOT_FOUND),
        FAILING(GetFileVersionInfoSizeA, DWORD{0}, ERROR_RESOURCE_DATA_NOT_FOUND),
        FAILING(VerQueryValueA, FALSE, 0),
        FAILING(InternetCloseHandle, FALSE, ERROR_INVALID_HANDLE, Work::kDone),
        FAILING(InternetGetConnectedState, FALSE, 0),
        FAILING(InternetOpenA, static_cast<HINTERNET>(nullptr), ERROR_NOT_ENOUGH_MEMORY),
        FAILING(InternetOpenUrlA, static_cast<HINTERNET>(nullptr), ERROR_INTERNET_CANNOT_CONNECT),
        FAILING(InternetReadFile, FALSE, ERROR_INTERNET_CONNECTION_RESET),
        FAILING(InternetSetOptionA, FALSE, ERROR_INTERNET_INVALID_OPTION),
        FAILING(_access, -1, ERROR_ACCESS_DENIED),
        FAILING(_unlink, -1, ERROR_SHARING_VIOLATION),
        FAILING(fopen, static_cast<FILE*>(nullptr), ERROR_ACCESS_DENIED),
        FAILING(fread, size_t{0}, ERROR_READ_FAULT),
        FAILING(fseek, -1, ERROR_SEEK),
        FAILING(ftell, -1L, ERROR_SEEK),
        FAILING(fclose, EOF, ERROR_WRITE_FAULT, Work::kDone),
        FAILING(realloc, static_cast<void*>(nullptr), ERROR_NOT_ENOUGH_MEMORY),
    };
    return {std::make_move_iterator(std::begin(patches)), std::make_move_iterator(std::end(patches))};
}

constexpr char kConverting[] = "MultiByteToWideChar|WideCharToMultiByte";
constexpr char kDeleting[] = "DeleteFileA|RemoveDirectoryA|FindFirstFileA|FindNextFileA|FindClose|GetFileAttributesA";
const Tolerance kTolerances[] = {
    {Breach::kSilent, "EndDialog|GetWindowLongPtrA|SetWindowLongPtrA", 0,
     "the dialog stays until the user ends it by Cancel"},
    {Breach::kSilent, kConverting, 0, "every text of a run is within the code page"},
    {Breach::kLeft, kConverting, 0, "every text of a run is within the code page"},
    {Breach::kOther, kConverting, 0, "every text of a run is within the code page"},
    {Breach::kLeft, kDeleting, 0, "Windows does not delete something in the temporary folder"},
    {Breach::kOther, kDeleting, 0, "Windows does not delete something in the temporary folder"}};

class WindowsCalls : public SweepBench {
 protected:
    WindowsCalls() : patches_(FailingImports(module())) {
        for (const Tolerance& tolerance : kTolerances)
            Tolerate(tolerance);
        ForEachImport(module(), [&](const char* library, const char* name, const void*) {
            if (bench::NameFits(library, kOthers)) return;
            if (bench::NameFits(name, kUncalled))
                patches_.push_back(std::make_unique<ImportPatch>(name, static_cast<void (*)()>(nullptr), module()));
            else if (!failing.count(name) && !bench::NameFits(name, kExcluded))
                ADD_FAILURE() << name << " is neither failed nor excluded";
        });
    }

    std::vector<Patch> patches_;
};

TEST_F(WindowsCalls, AnyMayFail) {
    for (const bench::PlannedFailure& call : EveryCall()) {
        if (!failing.count(call.name)) continue;
        Plant(call);
        // A dialog that cannot be ended stays.
        if (call.name != "EndDialog") Plant({call.name, call.ordinal, {}, true});
    }
    std::printf("%d failures planted\n", planted());
}

}  // namespace
