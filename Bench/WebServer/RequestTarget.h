// The target of a request line, in origin form ("/klimora?action=...") or, as clients send it to a proxy, in absolute
// form ("http://host:80/klimora?action=..."). Missing parts are empty.
#pragma once

#include <string>

namespace bench {

struct RequestTarget {
    std::string path;
    std::string query;  // without the question mark

    // Returns path and query as in the target, without scheme and host.
    std::string text() const { return query.empty() ? path : path + '?' + query; }
    // Returns the raw value of the first "name=" in the query; empty when there is none.
    std::string Value(const std::string& name) const;
};

RequestTarget ParseRequestTarget(const std::string& target);

// Whether the string is 32 upper-case hexadecimal digits.
bool IsSessionIdentifier(const std::string& text);

}  // namespace bench
