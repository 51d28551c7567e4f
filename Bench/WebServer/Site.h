// The content of the manufacturer's server, without the transport: products that fit a duct, choices and their results,
// the database files, and replacements set by tests. Thread-safe.
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
    kTruncated,  // the connection closes normally before the announced length
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
    // `catalogue` is the catalogue file; `server` the scheme and host in results, without a trailing slash.
    Site(const std::string& catalogue, std::string server);

    // Applies the fault to further requests whose path begins with `path`; the longest matching path wins.
    void SetFault(const std::string& path, ServerFault fault);
    // Sets a fixed response for a path, in place of the catalogue's.
    void Serve(const std::string& path, const std::string& body);
    // Sends these bytes, head and body, to every request whose path begins with `path`, then closes the connection.
    void ServeRaw(const std::string& path, const std::string& bytes);
    // Change the published result of a choice: set the text of a root element ("error", "warning"), or replace the
    // whole result.
    void PublishWith(const std::string& elementName, const std::string& text);
    void PublishInstead(const std::string& body);
    // Clears faults, fixed responses and changes; keeps choices.
    void Reset();

    // Returns all requests so far, including the configurator's, as in the call log but without results.
    std::vector<std::string> requests() const;

    // Records a request as it arrives and returns its fault. Called once per request.
    ServerFault RecordRequest(const std::string& method, const RequestTarget& target);
    std::optional<std::string> Raw(const RequestTarget& target) const;
    WebAnswer Answer(const std::string& method, const RequestTarget& target, ServerFault fault);

 private:
    WebAnswer Products(const RequestTarget& target) const;
    WebAnswer Choose(const RequestTarget& target);
    WebAnswer Result(const std::string& path) const;

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
