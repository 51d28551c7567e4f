// Directs WinINet through a proxy without changing the user's settings.
#pragma once

#include <string>

namespace bench {

// `address` is host and port. It applies to sessions that this process opens afterwards; child processes find it in the
// environment variable http_proxy. Throws std::runtime_error when WinINet rejects it.
void UseProxy(const std::string& address);

}  // namespace bench
