// What the maker's server answers, apart from how the answer travels: products that fit a duct, choices and their
// results, the database files, and what a test wants to see instead. Safe from any thread.
#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Catalogue.h"
#include "RequestTarget.h"

namespace bench {

enum class ServerFault {
    kNone,
    kNotFound,   // 404 with a page of text
    kTruncated,  // the connection closes in an orderly way before the announced length
    kReset,      // the connection is reset in the middle of the body: a read fails
    kRefused,    // the connection is reset before any answer: the address cannot be opened
    kStalled,    // a short pause in the middle, then the rest
};

struct WebAnswer {
    int status = 200;
    std::string type = "text/plain";
    std::string body;
};

class Site {
 public:
    // `catalogue` is the catalogue file; `server` the scheme and host that results name, without a trailing slash.
    Site(const std::string& catalogue, std::string server);

    // The next requests whose path begins with `path` meet this trouble; of several paths the longest counts.
    void SetFault(const std::string& path, ServerFault trouble);
    // A fixed answer for a path, instead of the catalogue's.
    void Serve(const std::string& path, const std::string& body);
    // What is sent for paths that begin with `path`, head and body, whatever is asked for; then the connection closes.
    void ServeRaw(const std::string& path, const std::string& bytes);
    // Edits to the result that is published for a choice: an element text of the root ("error", "warning"), or a whole
    // replacement of the result.
    void PublishWith(const std::string& elementName, const std::string& text);
    void PublishInstead(const std::string& body);
    // Troubles, fixed answers and edits are forgotten; choices stay.
    void Reset();

    // Requests so far, as in the journal but without their results, also those that the configurator made.
    std::vector<std::string> requests() const;

    // Once for each request as it arrives: notes it and tells its trouble.
    ServerFault Arrived(const std::string& method, const RequestTarget& target);
    std::optional<std::string> Raw(const RequestTarget& target) const;
    WebAnswer Answer(const std::string& method, const RequestTarget& target, ServerFault trouble);

 private:
    WebAnswer Products(const RequestTarget& target) const;
    WebAnswer Choose(const RequestTarget& target);
    WebAnswer Result(const std::string& fileName) const;

    const Catalogue catalogue_;
    const std::string server_;
    mutable std::mutex mutex_;
    std::vector<std::string> requests_;
    std::map<std::string, ServerFault> faults_;
    std::map<std::string, std::string> fixed_;
    std::map<std::string, std::string> raw_;
    std::map<std::string, std::vector<std::string>> choices_;  // by session identifier
    std::vector<std::pair<std::string, std::string>> rootTexts_;
    std::string instead_;
};

}  // namespace bench
