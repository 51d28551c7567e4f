// Reports to the user of exceptions that end an operation: one line on the command line, nothing in the debug log. An
// operation throws a fixed text as `const char*` and a composed one as std::string; its end is one ReportOnThrow. Null
// texts count as empty.
#pragma once

// The text of an exception that adds nothing to the report's own message.
inline constexpr char kNoDetails[] = "";

// Prints the current exception as "\n<display name>: <message> <source>(<line>):<function> <text of the exception>\n"
// and swallows it. Returns also when memory is exhausted or nothing can be printed. Call it from a catch-all handler.
void ReportException(const char* message, const char* source, int line, const char* function) noexcept;

// What a report shows besides the exception's text. Source, line and function are those that users quote to support;
// they stay when the code moves.
struct ReportSite {
    const char* message;
    const char* source;
    int line;
    const char* function;
};

// Runs an operation and returns its result; reports what it throws, and returns `failure` then.
template <class Result, class Operation>
Result ReportOnThrow(const ReportSite& site, Result failure, const Operation& operation) {
    try {
        return operation();
    } catch (...) {
        ReportException(site.message, site.source, site.line, site.function);
        return failure;
    }
}

// The same for an operation without a result.
template <class Operation>
void ReportOnThrow(const ReportSite& site, const Operation& operation) {
    try {
        operation();
    } catch (...) {
        ReportException(site.message, site.source, site.line, site.function);
    }
}
