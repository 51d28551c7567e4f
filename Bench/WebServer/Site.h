// What the maker's server answers, apart from how the answer travels: products that fit a duct, choices and their
// results, the database files, and what a test wants to see instead. Safe from any thread.
#pragma once

#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "Catalogue.h"
#include "RequestTarget.h"

namespace bench {

struct WebAnswer {
    int status = 200;
    std::string type = "text/plain";
    std::string body;
    std::string location;  // of a redirection
};

// An error page as a server shows it to people.
WebAnswer Page(int status, const std::string& text);

class Site {
 public:
    // `server` is the scheme and host that results name, without a trailing slash.
    Site(Catalogue catalogue, std::string server);

    WebAnswer Handle(const std::string& method, const RequestTarget& target);

    void Serve(const std::string& path, const std::string& body);
    void PublishWith(const std::string& elementName, const std::string& text);
    void PublishInstead(const std::string& body);
    // Choices stay; fixed answers and edits of results go.
    void Reset();

 private:
    WebAnswer Products(const RequestTarget& target);
    WebAnswer Choose(const RequestTarget& target);
    WebAnswer Result(const std::string& fileName);

    const Catalogue catalogue_;
    const std::string server_;
    std::mutex mutex_;
    std::map<std::string, std::string> fixed_;
    std::map<std::string, std::vector<std::string>> choices_;  // by session identifier
    std::vector<std::pair<std::string, std::string>> rootTexts_;
    std::string instead_;
};

}  // namespace bench
