// The target of a request line, in origin form ("/klimora?action=...") or, as clients send it to a proxy, in absolute
// form ("http://host:80/klimora?action=..."). A part that is missing is empty.
#pragma once

#include <string>

namespace bench {

struct RequestTarget {
    std::string path;
    std::string query;  // without the question mark

    // Path and query as they stood in the target, without scheme and host.
    std::string text() const { return query.empty() ? path : path + '?' + query; }
    // The value of the first "name=" in the query with its percent signs undone; empty when there is none.
    std::string Value(const std::string& name) const;
};

RequestTarget ParseRequestTarget(const std::string& target);

// 32 upper-case hexadecimal digits.
bool IsSessionIdentifier(const std::string& text);

}  // namespace bench
