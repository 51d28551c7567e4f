// Leads WinINet of this process, and of the processes that it starts, to a port of the loopback, for as long as it
// lives. WinINet under Wine takes its proxy from the environment variable http_proxy, which it reads through the C
// runtime; each runtime of the process keeps its own copy of the environment, so all of them are told.
#pragma once

#include <string>

namespace bench {

class Proxy {
 public:
    explicit Proxy(int port);
    ~Proxy();
    Proxy(const Proxy&) = delete;
    Proxy& operator=(const Proxy&) = delete;

 private:
    std::string before_;
};

}  // namespace bench
