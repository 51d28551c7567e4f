#include <windows.h>

#include "Diagnostics.h"

#include <cstdio>

#include "DebugLog.h"
#include "FormatText.h"

namespace {

DiagSettings moduleSettings;

struct Report {
    const char* message;
    const char* title;
    const char* file;
    int line;
    const char* function;
};

const char* OrEmpty(const char* text) {
    return text ? text : "";
}

std::string ComposeLine(const Report& report, uint32_t bits) {
    std::string line;
    if (*report.title) {
        line += report.title;
        line += "  -  ";
    }
    if (bits & RF_FUNCTION) line += FormatString("%s(...)", report.function);
    if (*report.message) {
        // The title has brought its own separator: without a function it stands twice, and readers of logs expect that.
        if (!line.empty()) line += "  -  ";
        line += '"';
        line += report.message;
        line += '"';
    }
    if (bits & RF_FILELINE) line += FormatString("  -  %s#%d", report.file, report.line);
    line += '\n';
    return line;
}

std::string ComposeBoxText(const Report& report, uint32_t bits) {
    std::string text;
    if (*report.message) {
        text += "Details\t:  ";
        text += report.message;
    }
    if (bits & RF_FUNCTION) text += FormatString("\nFunction\t:  %s(...)", report.function);
    if (bits & RF_FILELINE) text += FormatString("\nFile\t:  %s\nLine\t:  %d", report.file, report.line);
    return text;
}

void Publish(const Report& report, uint32_t bits) {
    const std::string line = ComposeLine(report, bits);
    if (bits & RF_SILENT) return;
    if (bits & RF_LOG) WriteDebugLog(line.c_str());
    if (bits & RF_STDOUT) std::fputs(FormatOwnText(line.c_str()).c_str(), stdout);
    if (bits & RF_MSGBOX) MessageBoxA(nullptr, ComposeBoxText(report, bits).c_str(), report.title, MB_OK);
}

// `bits` and `handler` are members of the settings, read at their moment: a handler may change the levels.
uint32_t ReportAs(const char* title, uint32_t DiagSettings::*bits, ReportHandler DiagSettings::*handler,
                  const char* message, const char* file, int line, const char* function) {
    Publish({OrEmpty(message), title, OrEmpty(file), line, OrEmpty(function)}, g_diagSettings->*bits);
    if (handler) {
        if (const ReportHandler call = g_diagSettings->*handler) call(g_diagSettings->handlerContext);
        FlushDebugLog();
    }
    return g_diagSettings->*bits;
}

void StoreLevel(uint32_t& level, uint32_t bits) {
    if (bits & RF_ALL) level = bits & RF_ALL;
}

}  // namespace

DiagSettings* g_diagSettings = &moduleSettings;

uint32_t ReportFatal(const char* message, const char* file, int line, const char* function) {
    return ReportAs("Fatal Error", &DiagSettings::fatalBits, &DiagSettings::onFatal, message, file, line, function);
}

uint32_t ReportError(const char* message, const char* file, int line, const char* function) {
    return ReportAs("Error", &DiagSettings::errorBits, &DiagSettings::onError, message, file, line, function);
}

uint32_t ReportError(const std::string& message, const char* file, int line, const char* function) {
    return ReportError(message.c_str(), file, line, function);
}

uint32_t ReportWarning(const char* message, const char* file, int line, const char* function) {
    return ReportAs("Warning", &DiagSettings::warningBits, &DiagSettings::onWarning, message, file, line, function);
}

uint32_t ReportInfo(const char* message, const char* file, int line, const char* function) {
    return ReportAs("", &DiagSettings::infoBits, nullptr, message, file, line, function);
}

void SetReportLevels(uint32_t fatalBits, uint32_t errorBits, uint32_t warningBits, uint32_t infoBits) {
    StoreLevel(g_diagSettings->fatalBits, fatalBits);
    StoreLevel(g_diagSettings->errorBits, errorBits);
    StoreLevel(g_diagSettings->warningBits, warningBits);
    StoreLevel(g_diagSettings->infoBits, infoBits);
}

void SetReportHandlers(void* context, ReportHandler onFatal, ReportHandler onError, ReportHandler onWarning) {
    g_diagSettings->handlerContext = context;
    g_diagSettings->onFatal = onFatal;
    g_diagSettings->onError = onError;
    g_diagSettings->onWarning = onWarning;
}

uint32_t ReportErrorAndBreak(const char* message, const char* file, int line, const char* function) {
    const uint32_t bits = ReportError(message, file, line, function);
    if (bits & RF_BREAK) DebugBreak();
    return bits;
}

uint32_t ReportErrorAndBreak(const std::string& message, const char* file, int line, const char* function) {
    return ReportErrorAndBreak(message.c_str(), file, line, function);
}

bool VerifyOrReport(bool failed, const char* conditionText, const char* message, const char* file, int line,
                    const char* function) {
    if (failed) {
        ReportErrorAndBreak(FormatString("(%s) %s", OrEmpty(conditionText), OrEmpty(message)), file, line, function);
    }
    return failed;
}
