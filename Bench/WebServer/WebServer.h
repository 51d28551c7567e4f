// Stand-in for the manufacturer's web server: serves the catalogue's products that fit a duct, takes the configurator's
// choice for a session, and serves the result, dictionary and database files. It listens on the loopback and is reached
// under the manufacturer's own addresses, because UseAsProxy leads WinINet of this process and of its children to it.
// Every request is a line of the journal ("GET /klimora/export/0F….xml -> 200"), in the order of arrival; a planned
// failure of "GET" or "POST" is met as kRefused. What it imitates is in docs/contracts/webserver.md.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace bench {

enum class Trouble {
    kNone,
    kNotFound,    // 404 with a page of text
    kEmpty,       // 200 and no byte
    kTruncated,   // the connection closes in an orderly way before the announced length
    kReset,       // the connection is reset in the middle of the body: a read fails
    kRefused,     // the connection is reset before any answer: the address cannot be opened
    kStalled,     // a short pause in the middle, then the rest
    kRedirected,  // 302 to the same file under another path
    kHuge         // five megabytes
};

class WebServer {
 public:
    // `catalogue` is the catalogue file (see Bench/Sample). The server listens when the constructor returns.
    explicit WebServer(const std::string& catalogue);
    ~WebServer();
    WebServer(const WebServer&) = delete;
    WebServer& operator=(const WebServer&) = delete;

    int port() const;
    // Leads WinINet of this process and of its children here; the destructor takes it back.
    void UseAsProxy();

    // The next requests whose path begins with `path` meet this trouble.
    void SetTrouble(const std::string& path, Trouble trouble);
    // A fixed answer for a path, instead of the catalogue's.
    void Serve(const std::string& path, const std::string& body);
    // Edits to the result that is published for a choice: an element text of the root ("error", "warning"), or a whole
    // replacement of the result.
    void PublishWith(const std::string& elementName, const std::string& text);
    void PublishInstead(const std::string& body);
    // Troubles, fixed answers and edits are forgotten.
    void Reset();

    // Requests so far, as in the journal but without their results, also those that the configurator made.
    std::vector<std::string> requests() const;

 private:
    struct Implementation;
    std::unique_ptr<Implementation> implementation_;
};

}  // namespace bench
