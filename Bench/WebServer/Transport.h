// How the server's answers travel: a listener on the loopback, one request a connection, each a line of the journal
// with the status that was sent ("GET /klimora/export/0F….xml -> 200", or "-> dropped"). A planned failure of "GET" or
// "POST" closes the connection without an answer, and the site never hears of the request.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "RequestTarget.h"
#include "Site.h"
#include "WebServer.h"

namespace bench {

// What the transport asks of its owner, on the connection's thread.
struct TransportOwner {
    // Called once for each request as it arrives: notes it and tells its trouble.
    std::function<Trouble(const std::string& method, const RequestTarget& target)> arrived;
    std::function<WebAnswer(const std::string& method, const RequestTarget& target, Trouble trouble)> answer;
};

class Transport {
 public:
    // Listens when the constructor returns; throws std::runtime_error when there is no port to be had.
    explicit Transport(TransportOwner owner);
    ~Transport();
    Transport(const Transport&) = delete;
    Transport& operator=(const Transport&) = delete;

    int port() const;

 private:
    struct Implementation;
    std::unique_ptr<Implementation> implementation_;
};

}  // namespace bench
