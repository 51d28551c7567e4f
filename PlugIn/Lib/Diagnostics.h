// Process-wide reporting of failures. A report is composed into one line. The bits of its severity decide whether it is
// written to the debug log, printed on standard output and shown in a message box. A report returns these bits; the
// caller breaks into an attached debugger when RF_BREAK is set (ReportErrorAndBreak does both). Strings are narrow and
// may be null. Reporting never fails and allocates no heap memory: a composed text is cut to 8191 characters, and
// exceptions of a handler are swallowed. Main thread only.
#pragma once

#include <cstdint>
#include <string>

enum ReportBits : uint32_t {
    RF_RESULT1 = 0x0001,   // for the caller
    RF_BREAK = 0x0002,     // for the caller: DebugBreak
    RF_RESULT4 = 0x0004,   // for the caller
    RF_SILENT = 0x0040,    // nothing written, printed or shown
    RF_LOG = 0x0080,       // line in the debug log
    RF_RESERVED = 0x0100,  // stored, without effect
    RF_MSGBOX = 0x0200,    // message box
    RF_STDOUT = 0x0400,    // line on standard output
    RF_FILELINE = 0x1000,  // with source file and line
    RF_FUNCTION = 0x2000,  // with the function name
    RF_ALL = 0x37C7        // only these bits are ever stored
};

using ReportHandler = void (*)(void* context);

struct DiagSettings {
    uint32_t fatalBits = RF_FUNCTION | RF_FILELINE | RF_MSGBOX | RF_RESERVED | RF_LOG | RF_RESULT4 | RF_BREAK;
    uint32_t errorBits = RF_FUNCTION | RF_FILELINE | RF_RESERVED | RF_LOG | RF_BREAK;
    uint32_t warningBits = RF_FUNCTION | RF_FILELINE | RF_RESERVED | RF_LOG | RF_BREAK;
    uint32_t infoBits = RF_FUNCTION | RF_FILELINE | RF_RESERVED | RF_LOG | RF_RESULT1;
    void* handlerContext = nullptr;
    ReportHandler onFatal = nullptr;
    ReportHandler onError = nullptr;
    ReportHandler onWarning = nullptr;
};

// The current settings; never null.
extern DiagSettings* g_diagSettings;

uint32_t ReportFatal(const char* message, const char* file, int line, const char* function) noexcept;
uint32_t ReportError(const char* message, const char* file, int line, const char* function) noexcept;
uint32_t ReportError(const std::string& message, const char* file, int line, const char* function) noexcept;
uint32_t ReportWarning(const char* message, const char* file, int line, const char* function) noexcept;
uint32_t ReportInfo(const char* message, const char* file, int line, const char* function) noexcept;

// Replaces the bits of each severity whose argument has a bit of RF_ALL, and keeps the others. Stores only bits of
// RF_ALL.
void SetReportLevels(uint32_t fatalBits, uint32_t errorBits, uint32_t warningBits, uint32_t infoBits) noexcept;
void SetReportHandlers(void* context, ReportHandler onFatal, ReportHandler onError, ReportHandler onWarning) noexcept;

// Calls ReportError, then DebugBreak when RF_BREAK is set and a debugger is attached: without one the break would end
// AutoCAD.
uint32_t ReportErrorAndBreak(const char* message, const char* file, int line, const char* function) noexcept;
uint32_t ReportErrorAndBreak(const std::string& message, const char* file, int line, const char* function) noexcept;

// Checks a condition that means failure ("!ret"): when it holds, calls ReportErrorAndBreak with "(condition) message".
// Returns `failed`.
bool VerifyOrReport(bool failed, const char* conditionText, const char* message, const char* file, int line,
                    const char* function) noexcept;
