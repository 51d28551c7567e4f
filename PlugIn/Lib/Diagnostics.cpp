#include "Diagnostics.h"

#include <windows.h>

#include <cstdio>

#include "DebugLog.h"
#include "FormatText.h"
#include "Text.h"

namespace {

DiagSettings moduleSettings;

struct Severity {
    const char* title;
    uint32_t DiagSettings::*bits;
    ReportHandler DiagSettings::*handler;  // null for a severity that calls nobody
    bool flushed;
};

constexpr Severity kFatal = {"Fatal Error", &DiagSettings::fatalBits, &DiagSettings::onFatal, true};
constexpr Severity kError = {"Error", &DiagSettings::errorBits, &DiagSettings::onError, true};
constexpr Severity kWarning = {"Warning", &DiagSettings::warningBits, &DiagSettings::onWarning, true};
constexpr Severity kInfo = {"", &DiagSettings::infoBits, nullptr, false};

// Its texts are never null.
struct Report {
    const char* message;
    const char* file;
    int line;
    const char* function;
};

BoundedText ComposeLine(const char* title, const Report& report, uint32_t bits) noexcept {
    BoundedText line;
    if (*title) line.Append("%s  -  ", title);
    if (bits & RF_FUNCTION) line.Append("%s(...)", report.function);
    // The title has brought its own separator: without a function it stands twice, and readers of logs expect that.
    if (*report.message) line.Append("%s\"%s\"", line.empty() ? "" : "  -  ", report.message);
    if (bits & RF_FILELINE) line.Append("  -  %s#%d", report.file, report.line);
    line.Append("\n");
    return line;
}

BoundedText ComposeBoxText(const Report& report, uint32_t bits) noexcept {
    BoundedText text;
    if (*report.message) text.Append("Details\t:  %s", report.message);
    if (bits & RF_FUNCTION) text.Append("\nFunction\t:  %s(...)", report.function);
    if (bits & RF_FILELINE) text.Append("\nFile\t:  %s\nLine\t:  %d", report.file, report.line);
    return text;
}

void Publish(const char* title, const Report& report, uint32_t bits) noexcept {
    if (bits & RF_SILENT) return;
    if (bits & (RF_LOG | RF_STDOUT)) {
        BoundedText line = ComposeLine(title, report, bits);
        line.FormatAsItsOwn();
        if (bits & RF_LOG) WriteDebugLog(line.c_str());
        if (bits & RF_STDOUT) std::fputs(line.c_str(), stdout);
    }
    if (bits & RF_MSGBOX) MessageBoxA(nullptr, ComposeBoxText(report, bits).c_str(), title, MB_OK);
}

// Bits and handler are read at their moment: a handler may change the levels.
uint32_t ReportAs(const Severity& severity, const char* message, const char* file, int line,
                  const char* function) noexcept {
    Publish(severity.title, {OrEmpty(message), OrEmpty(file), line, OrEmpty(function)}, g_diagSettings->*severity.bits);
    if (const ReportHandler call = severity.handler ? g_diagSettings->*severity.handler : nullptr) {
        try {
            call(g_diagSettings->handlerContext);
        } catch (...) {
            // A reporter that fails has nobody to tell.
        }
    }
    if (severity.flushed) FlushDebugLog();
    return g_diagSettings->*severity.bits;
}

void StoreLevel(uint32_t& level, uint32_t bits) {
    if (bits & RF_ALL) level = bits & RF_ALL;
}

}  // namespace

DiagSettings* g_diagSettings = &moduleSettings;

uint32_t ReportFatal(const char* message, const char* file, int line, const char* function) noexcept {
    return ReportAs(kFatal, message, file, line, function);
}

uint32_t ReportError(const char* message, const char* file, int line, const char* function) noexcept {
    return ReportAs(kError, message, file, line, function);
}

uint32_t ReportError(const std::string& message, const char* file, int line, const char* function) noexcept {
    return ReportError(message.c_str(), file, line, function);
}

uint32_t ReportWarning(const char* message, const char* file, int line, const char* function) noexcept {
    return ReportAs(kWarning, message, file, line, function);
}

uint32_t ReportInfo(const char* message, const char* file, int line, const char* function) noexcept {
    return ReportAs(kInfo, message, file, line, function);
}

void SetReportLevels(uint32_t fatalBits, uint32_t errorBits, uint32_t warningBits, uint32_t infoBits) noexcept {
    StoreLevel(g_diagSettings->fatalBits, fatalBits);
    StoreLevel(g_diagSettings->errorBits, errorBits);
    StoreLevel(g_diagSettings->warningBits, warningBits);
    StoreLevel(g_diagSettings->infoBits, infoBits);
}

void SetReportHandlers(void* context, ReportHandler onFatal, ReportHandler onError, ReportHandler onWarning) noexcept {
    g_diagSettings->handlerContext = context;
    g_diagSettings->onFatal = onFatal;
    g_diagSettings->onError = onError;
    g_diagSettings->onWarning = onWarning;
}

uint32_t ReportErrorAndBreak(const char* message, const char* file, int line, const char* function) noexcept {
    const uint32_t bits = ReportError(message, file, line, function);
    if (bits & RF_BREAK && IsDebuggerPresent()) DebugBreak();
    return bits;
}

uint32_t ReportErrorAndBreak(const std::string& message, const char* file, int line, const char* function) noexcept {
    return ReportErrorAndBreak(message.c_str(), file, line, function);
}

bool VerifyOrReport(bool failed, const char* conditionText, const char* message, const char* file, int line,
                    const char* function) noexcept {
    if (failed) {
        BoundedText text;
        text.Append("(%s) %s", OrEmpty(conditionText), OrEmpty(message));
        ReportErrorAndBreak(text.c_str(), file, line, function);
    }
    return failed;
}
