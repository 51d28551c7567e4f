// Leads WinINet through a proxy without touching the user's own settings.
#pragma once

#include <string>

namespace bench {

// `address` is host and port. It holds for the sessions that this process opens from now on; processes that it starts
// find the address in the environment variable http_proxy. Throws std::runtime_error when WinINet refuses.
void UseProxy(const std::string& address);

}  // namespace bench
