// Fails each call of the Windows functions that the module imports and a run calls, once and from there on.
#include <windows.h>
#include <ole2.h>
#include <wininet.h>

#include <io.h>

#include <cstdio>
#include <set>

#include "SweepBench.h"

namespace {

// Libraries that other suites cover, and the C runtime.
constexpr char kOthers[] = "accore.dll|Kbase640.dll|Klimora.Plugins.Statistics.Sorvik.dll|msvcrt.dll";

// Functions without a fault: those that cannot fail or report a failure, and those without which the C++ runtime ends
// the process. Every sweep fails CreateProcessA.
constexpr char kExcluded[] =
    "GetLastError|SetLastError|GetCurrent*|GetTickCount*|GetSystemTimeAsFileTime|Sleep|OutputDebugStringA|IsDebugger*|"
    "DebugBreak|IsDBCSLeadByteEx|SysFreeString|SysStringLen|OleUninitialize|PostQuitMessage|GetSystemMetrics|"
    "GetSysColor|EnableWindow|ShowWindow|TranslateMessage|DispatchMessageA|PeekMessageA|WaitMessage|SendMessageA|"
    "AddVectored*|RemoveVectored*|InitializeCriticalSection|EnterCriticalSection|TryEnterCriticalSection|"
    "LeaveCriticalSection|DeleteCriticalSection|CreateEventA|SetEvent|ResetEvent|CreateSemaphoreA|ReleaseSemaphore|"
    "DuplicateHandle|GetHandleInformation|GetProcessAffinityMask|SetProcessAffinityMask|GetThread*|SetThread*|"
    "OpenProcess|RaiseException|ResumeThread|SuspendThread|Rtl*|Tls*|Virtual*|WaitForMultipleObjects|"
    "__C_specific_handler|GetModuleHandleW|GetProcAddress|LoadLibraryW|CreateProcessA";

// Functions that the command never calls. Their imports are set to null, so that a call crashes.
constexpr char kUncalled[] =
    "Reg*|InitCommonControls|GetOpenFileNameA|CreateSolidBrush|DeleteObject|SetBk*|SetTextColor|FormatMessageA|"
    "FreeLibrary|LoadLibraryA|GlobalAlloc|GlobalFree|GlobalLock|GlobalSize|GlobalUnlock|LocalFree|SetCurrentDirectoryA|"
    "ShellExecuteExA|CloseClipboard|CreateWindowExA|DestroyIcon|EmptyClipboard|GetClipboardData|GetFileAttributesA|"
    "GetDlgCtrlID|IsClipboard*|OpenClipboard|RegisterClip*|SetClipboardData|SetWindowTextA";

using Patch = std::unique_ptr<ImportPatch>;

std::set<std::string> failing;  // names of the functions with a fault

enum class Work { kNotDone, kDone };  // kDone: a failing release still releases

template <class Tag, class Result, class... Arguments>
Patch Failing(HMODULE module, const char* name, Result(WINAPI*)(Arguments...), std::common_type_t<Result> failure,
              Work work = Work::kNotDone) {
    static struct {
        const char* name;
        Result failure;
        Work work;
        Result(WINAPI* original)(Arguments...);
    } plan;
    const auto replacement = [](Arguments... arguments) -> Result {
        const bench::Call call(plan.name, "");
        if (!call.fails()) return plan.original(arguments...);
        if (plan.work == Work::kDone) plan.original(arguments...);
        SetLastError(ERROR_ACCESS_DENIED);
        return plan.failure;
    };
    using Function = Result WINAPI(Arguments...);
    auto patch = std::make_unique<ImportPatch>(name, static_cast<Function*>(replacement), module);
    failing.insert(name);
    plan = {name, failure, work, patch->template original<Function>()};
    return patch;
}

// Uses only the function's name and type, so the program need not import it.
#define FAILING(function, ...) \
    Failing<struct function##Tag>(module, #function, static_cast<decltype(&function)>(nullptr), __VA_ARGS__)

template <class... Patches>
std::vector<Patch> ListOf(Patches... patches) {
    std::vector<Patch> list;
    (list.push_back(std::move(patches)), ...);
    return list;
}

std::vector<Patch> FailingImports(HMODULE module) {
    return ListOf(
        FAILING(CloseHandle, FALSE, Work::kDone), FAILING(CreateDirectoryA, FALSE), FAILING(DeleteFileA, FALSE),
        FAILING(FindClose, FALSE, Work::kDone), FAILING(FindNextFileA, FALSE), FAILING(GetExitCodeProcess, FALSE),
        FAILING(RemoveDirectoryA, FALSE), FAILING(TerminateProcess, FALSE), FAILING(WriteFile, FALSE),
        FAILING(DestroyCursor, FALSE, Work::kDone), FAILING(DestroyWindow, FALSE, Work::kDone),
        FAILING(EndDialog, FALSE), FAILING(GetWindowRect, FALSE), FAILING(KillTimer, FALSE, Work::kDone),
        FAILING(PostMessageA, FALSE), FAILING(SetDlgItemTextA, FALSE), FAILING(SetForegroundWindow, FALSE),
        FAILING(SetWindowPos, FALSE), FAILING(GetFileVersionInfoA, FALSE), FAILING(VerQueryValueA, FALSE),
        FAILING(InternetCloseHandle, FALSE, Work::kDone), FAILING(InternetGetConnectedState, FALSE),
        FAILING(InternetReadFile, FALSE), FAILING(InternetSetOptionA, FALSE), FAILING(GetModuleHandleA, nullptr),
        FAILING(SysAllocStringLen, nullptr), FAILING(CreateDialogParamA, nullptr), FAILING(GetDlgItem, nullptr),
        FAILING(GetFocus, nullptr), FAILING(GetParent, nullptr), FAILING(LoadCursorA, nullptr),
        FAILING(LoadImageA, nullptr), FAILING(SetCursor, nullptr), FAILING(SetFocus, nullptr),
        FAILING(InternetOpenA, nullptr), FAILING(InternetOpenUrlA, nullptr), FAILING(fopen, nullptr),
        FAILING(realloc, nullptr), FAILING(GetModuleFileNameA, 0), FAILING(GetTempFileNameA, 0),
        FAILING(GetTempPathA, 0), FAILING(MultiByteToWideChar, 0), FAILING(WideCharToMultiByte, 0),
        FAILING(GetWindowLongPtrA, 0), FAILING(GetWindowTextA, 0), FAILING(GetWindowTextLengthA, 0),
        FAILING(MessageBoxA, 0), FAILING(SetTimer, 0), FAILING(SetWindowLongPtrA, 0),
        FAILING(GetFileVersionInfoSizeA, 0), FAILING(fread, 0), FAILING(DialogBoxParamA, -1), FAILING(_access, -1),
        FAILING(_unlink, -1), FAILING(fseek, -1), FAILING(ftell, -1), FAILING(CreateFileA, INVALID_HANDLE_VALUE),
        FAILING(FindFirstFileA, INVALID_HANDLE_VALUE), FAILING(WaitForSingleObject, WAIT_FAILED),
        FAILING(CLSIDFromProgID, REGDB_E_CLASSNOTREG), FAILING(GetActiveObject, MK_E_UNAVAILABLE),
        FAILING(OleInitialize, E_OUTOFMEMORY), FAILING(fclose, EOF, Work::kDone));
}

constexpr char kConverting[] = "MultiByteToWideChar|WideCharToMultiByte";
constexpr char kDeleting[] = "DeleteFileA|RemoveDirectoryA|FindFirstFileA|FindNextFileA|FindClose";
const Tolerance kTolerances[] = {
    {Breach::kSilent, "EndDialog|GetWindowLongPtrA|SetWindowLongPtrA", 0,
     "the dialog stays open until the user cancels it"},
    {Breach::kSilent, kConverting, 0, "the code page has every character of a run"},
    {Breach::kLeft, kConverting, 0, "the code page has every character of a run"},
    {Breach::kOther, kConverting, 0, "the code page has every character of a run"},
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
                ADD_FAILURE() << name << " has no fault and is not excluded";
        });
    }

    std::vector<Patch> patches_;
};

TEST_F(WindowsCalls, SurvivesAnyFailedCall) {
    for (const bench::InjectedFault& call : EveryCall()) {
        if (!failing.count(call.name)) continue;
        Plant(call);
        // When EndDialog always fails, the dialog stays open.
        if (call.name != "EndDialog") Plant({call.name, call.ordinal, {}, true});
    }
    std::printf("%d failures planted\n", planted());
}

}  // namespace
