// Process-wide reporting of failures. A report is composed into one line and, by the bit word of its severity, written
// to the debug log, echoed to standard output and shown in a message box; the word is returned, and the caller breaks
// into an attached debugger when it has RF_BREAK (ReportErrorAndBreak does both). Texts are narrow and may be null. The
// facility never fails, never reports about itself and takes no memory of the heap for itself: a composed text is cut
// to 8191 characters, and what a handler throws ends there. Main thread only.
#pragma once

#include <cstdint>
#include <string>

enum ReportBits : uint32_t {
    RF_RESULT1 = 0x0001,   // for the caller
    RF_BREAK = 0x0002,     // for the caller: DebugBreak
    RF_RESULT4 = 0x0004,   // for the caller
    RF_SILENT = 0x0040,    // nothing written, echoed or shown
    RF_LOG = 0x0080,       // line into the debug log
    RF_RESERVED = 0x0100,  // stored, without effect
    RF_MSGBOX = 0x0200,    // message box
    RF_STDOUT = 0x0400,    // line to standard output
    RF_FILELINE = 0x1000,  // with source file and line
    RF_FUNCTION = 0x2000,  // with the function name
    RF_ALL = 0x37C7        // only these bits are ever stored
};

using ReportHandler = void (*)(void* context);

struct DiagSettings {
    uint32_t fatalBits = 0x3386;
    uint32_t errorBits = 0x3182;
    uint32_t warningBits = 0x3182;
    uint32_t infoBits = 0x3181;
    void* handlerContext = nullptr;
    ReportHandler onFatal = nullptr;
    ReportHandler onError = nullptr;
    ReportHandler onWarning = nullptr;
};

// The record in force; never null.
extern DiagSettings* g_diagSettings;

uint32_t ReportFatal(const char* message, const char* file, int line, const char* function) noexcept;
uint32_t ReportError(const char* message, const char* file, int line, const char* function) noexcept;
uint32_t ReportError(const std::string& message, const char* file, int line, const char* function) noexcept;
uint32_t ReportWarning(const char* message, const char* file, int line, const char* function) noexcept;
uint32_t ReportInfo(const char* message, const char* file, int line, const char* function) noexcept;

// Each word that has a bit of RF_ALL replaces that severity's word, masked with RF_ALL; any other leaves it alone.
void SetReportLevels(uint32_t fatalBits, uint32_t errorBits, uint32_t warningBits, uint32_t infoBits) noexcept;
void SetReportHandlers(void* context, ReportHandler onFatal, ReportHandler onError, ReportHandler onWarning) noexcept;

// Calls ReportError, then DebugBreak when the returned word has RF_BREAK and a debugger is attached: without one the
// break would end AutoCAD.
uint32_t ReportErrorAndBreak(const char* message, const char* file, int line, const char* function) noexcept;
uint32_t ReportErrorAndBreak(const std::string& message, const char* file, int line, const char* function) noexcept;

// Check of a condition that stands for a failure ("!ret"): when it holds, "(condition) message" is reported and broken
// upon. Returns `failed`.
bool VerifyOrReport(bool failed, const char* conditionText, const char* message, const char* file, int line,
                    const char* function) noexcept;
