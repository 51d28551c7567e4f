#include "ExceptionReport.h"

#include <exception>
#include <sstream>
#include <string>

#include "ticpp.h"

#include "CommandLine.h"
#include "DisplayName.h"

namespace {

void Print(const char* message, const std::string& location, const char* text) {
    PrintCommandLine("\n%s: %s %s %s\n", kDisplayName, message, location.c_str(), text ? text : "");
}

}  // namespace

void ReportException(const char* message, const char* source, int line, const char* function) {
    if (!message) message = "";
    std::ostringstream place;
    place << (source ? source : "") << '(' << line << "):" << (function ? function : "");
    const std::string location = place.str();
    try {
        throw;
    } catch (const ticpp::Exception& exception) {
        Print(message, location, exception.m_details.c_str());
    } catch (const std::exception& exception) {
        Print(message, location, exception.what());
    } catch (const std::string& text) {
        Print(message, location, text.c_str());
    } catch (const char* text) {
        Print(message, location, text);
    } catch (...) {
        PrintCommandLine("\n%s: %s %s\n", kDisplayName, message, location.c_str());
    }
}
