// The target of a request line, in origin form ("/klimora?action=...") or, as clients send it to a proxy, in absolute
// form ("http://host:80/klimora?action=..."). A part that is missing is empty.
#pragma once

#include <string>
#include <vector>

namespace bench {

struct RequestTarget {
    std::string path;
    std::string query;  // without the question mark

    // Path and query as they stood in the target, without scheme and host.
    std::string text() const { return query.empty() ? path : path + '?' + query; }
    // The value of the first "name=" in the query as it stands there; empty when there is none.
    std::string Value(const std::string& name) const;
};

RequestTarget ParseRequestTarget(const std::string& target);

// Ids as a choice names several; at least one, which may be empty.
std::vector<std::string> SplitAtCommas(const std::string& text);

// 32 upper-case hexadecimal digits.
bool IsSessionIdentifier(const std::string& text);

}  // namespace bench
