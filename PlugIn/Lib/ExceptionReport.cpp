#include "Lib/ExceptionReport.h"

#include <exception>
#include <string>

#include "Lib/CommandLine.h"
#include "Lib/ModuleIdentity.h"
#include "Lib/Text.h"
#include "ticpp.h"

void ReportException(const char* message, const char* source, int line, const char* function) noexcept try {
    const auto print = [=](const char* blank, const char* text) {
        PrintCommandLine("\n%s: %s %s(%d):%s%s%s\n", kDisplayName, OrEmpty(message), OrEmpty(source), line,
                         OrEmpty(function), blank, OrEmpty(text));
    };
    try {
        throw;
    } catch (const ticpp::Exception& exception) {
        print(" ", exception.m_details.c_str());
    } catch (const std::exception& exception) {
        print(" ", exception.what());
    } catch (const std::string& text) {
        print(" ", text.c_str());
    } catch (const char* text) {
        print(" ", text);
    } catch (...) {
        print("", "");
    }
} catch (...) {
    // Nothing left to report to.
}
