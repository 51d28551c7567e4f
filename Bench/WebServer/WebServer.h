// Fake of the manufacturer's web server: the site on the loopback interface. It is reached under the manufacturer's own
// addresses, because UseAsProxy directs WinINet of this process and its children to it. Every request is a line of the
// call log ("GET /klimora/export/0F….xml -> 200"), in order of arrival; an injected fault of "GET" or "POST" acts as
// kRefused. docs/contracts/webserver.md states what it imitates.
#pragma once

#include <memory>
#include <string>

#include "Site.h"

namespace bench {

class WebServer : public Site {
 public:
    // `catalogue` is the catalogue file (see Bench/Sample). The server listens when the constructor returns. Throws
    // std::runtime_error with the reason when it cannot.
    explicit WebServer(const std::string& catalogue);
    ~WebServer();

    // Directs WinINet of this process and of its new child processes to this server, until another one is used.
    void UseAsProxy() const;

 private:
    class Listener;
    std::unique_ptr<Listener> listener_;
};

}  // namespace bench
