// How a real WinINet client meets the web server: the same calls in the same order as a download of the module, with
// every step's answer kept. Nothing here knows that the server is a stand-in.
#pragma once

#include <string>

struct Fetched {
    bool opened = false;    // InternetOpenUrl gave a handle
    bool cleanEnd = false;  // the last InternetReadFile said TRUE and no bytes
    unsigned long status = 0;
    std::string body;
};

Fetched Fetch(const std::string& path);
Fetched Post(const std::string& path);
