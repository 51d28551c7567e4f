#include "RequestTarget.h"

#include <cctype>
#include <cstdlib>

namespace bench {
namespace {

std::string PercentDecoded(const std::string& text) {
    std::string decoded;
    for (size_t i = 0; i < text.size(); ++i) {
        const bool coded = text[i] == '%' && i + 2 < text.size() &&
                           std::isxdigit(static_cast<unsigned char>(text[i + 1])) &&
                           std::isxdigit(static_cast<unsigned char>(text[i + 2]));
        if (!coded) {
            decoded += text[i];
            continue;
        }
        decoded += static_cast<char>(std::strtol(text.substr(i + 1, 2).c_str(), nullptr, 16));
        i += 2;
    }
    return decoded;
}

}  // namespace

std::string RequestTarget::Value(const std::string& name) const {
    for (size_t start = 0; start < query.size();) {
        size_t end = query.find('&', start);
        if (end == std::string::npos) end = query.size();
        const std::string pair = query.substr(start, end - start);
        if (pair.compare(0, name.size() + 1, name + '=') == 0) return PercentDecoded(pair.substr(name.size() + 1));
        start = end + 1;
    }
    return {};
}

RequestTarget ParseRequestTarget(const std::string& target) {
    std::string origin = target;
    const size_t scheme = origin.find("://");
    if (scheme != std::string::npos && origin[0] != '/') {
        const size_t path = origin.find_first_of("/?", scheme + 3);
        origin = path == std::string::npos ? "/" : origin.substr(path);
    }
    const size_t question = origin.find('?');
    if (question == std::string::npos) return {origin, ""};
    return {origin.substr(0, question), origin.substr(question + 1)};
}

bool IsSessionIdentifier(const std::string& text) {
    return text.size() == 32 && text.find_first_not_of("0123456789ABCDEF") == std::string::npos;
}

}  // namespace bench
