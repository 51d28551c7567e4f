#include "Lib/Diagnostics.h"

#include <windows.h>

#include <cstdio>

#include "Lib/DebugLog.h"
#include "Lib/FormatText.h"
#include "Lib/Text.h"

namespace {

DiagSettings moduleSettings;

// Its strings are never null.
struct Report {
    Report(const char* message, const char* file, int line, const char* function) noexcept
        : message(OrEmpty(message)), file(OrEmpty(file)), line(line), function(OrEmpty(function)) {}

    const char* message;
    const char* file;
    int line;
    const char* function;
};

BoundedText ComposeLine(const char* title, const Report& report, uint32_t bits) noexcept {
    BoundedText line;
    if (*title) line.Append("%s  -  ", title);
    if (bits & RF_FUNCTION) line.Append("%s(...)", report.function);
    // The title ends in a separator, so without a function there are two; readers of logs expect that.
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

void CallHandler(ReportHandler handler) noexcept {
    if (!handler) return;
    try {
        handler(g_diagSettings->handlerContext);
    } catch (...) {
        // Nothing left to report to.
    }
}

void StoreLevel(uint32_t& level, uint32_t bits) {
    if (bits & RF_ALL) level = bits & RF_ALL;
}

}  // namespace

DiagSettings* g_diagSettings = &moduleSettings;

uint32_t ReportFatal(const char* message, const char* file, int line, const char* function) noexcept {
    Publish("Fatal Error", {message, file, line, function}, g_diagSettings->fatalBits);
    CallHandler(g_diagSettings->onFatal);
    FlushDebugLog();
    return g_diagSettings->fatalBits;  // read again, since the handler may change the levels
}

uint32_t ReportError(const char* message, const char* file, int line, const char* function) noexcept {
    Publish("Error", {message, file, line, function}, g_diagSettings->errorBits);
    CallHandler(g_diagSettings->onError);
    FlushDebugLog();
    return g_diagSettings->errorBits;
}

uint32_t ReportError(const std::string& message, const char* file, int line, const char* function) noexcept {
    return ReportError(message.c_str(), file, line, function);
}

uint32_t ReportWarning(const char* message, const char* file, int line, const char* function) noexcept {
    Publish("Warning", {message, file, line, function}, g_diagSettings->warningBits);
    CallHandler(g_diagSettings->onWarning);
    FlushDebugLog();
    return g_diagSettings->warningBits;
}

uint32_t ReportInfo(const char* message, const char* file, int line, const char* function) noexcept {
    Publish("", {message, file, line, function}, g_diagSettings->infoBits);
    return g_diagSettings->infoBits;
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
