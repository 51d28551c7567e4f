#include "RequestTarget.h"

#include "BenchTexts.h"

namespace bench {

std::string RequestTarget::Value(const std::string& name) const {
    for (const std::string& pair : Split(query, '&'))
        if (pair.compare(0, name.size() + 1, name + '=') == 0) return pair.substr(name.size() + 1);
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
