// Stand-in for the manufacturer's web server: the site on the loopback. It is reached under the manufacturer's own
// addresses, because UseAsProxy leads WinINet of this process and of its children to it. Every request is a line of the
// journal ("GET /klimora/export/0F….xml -> 200"), in the order of arrival; a planned failure of "GET" or "POST" is met
// as kRefused. What it imitates is in docs/contracts/webserver.md.
#pragma once

#include <memory>
#include <string>

#include "Site.h"

namespace bench {

class WebServer : public Site {
 public:
    // `catalogue` is the catalogue file (see Bench/Sample). The server listens when the constructor returns; throws
    // std::runtime_error with the reason when it cannot.
    explicit WebServer(const std::string& catalogue);
    ~WebServer();

    // From now on WinINet of this process and of the processes that it starts comes here, until another server is used.
    void UseAsProxy() const;

 private:
    class Listener;
    std::unique_ptr<Listener> listener_;
};

}  // namespace bench
