#include "WebServer.h"

#include <map>
#include <mutex>

#include "Proxy.h"
#include "Site.h"
#include "Transport.h"

namespace bench {
namespace {

constexpr size_t kHugeSize = 5 * 1024 * 1024;
const char kMovedPath[] = "/moved";

// A redirected request that comes again gets its first path back.
void UndoMove(RequestTarget& target) {
    const std::string moved = kMovedPath;
    if (target.path.compare(0, moved.size() + 1, moved + '/') == 0) target.path.erase(0, moved.size());
}

}  // namespace

struct WebServer::Implementation {
    explicit Implementation(const std::string& catalogue)
        : site(ReadCatalogue(catalogue), SORVIK_WEB_SERVER),
          transport({[this](const std::string& method, const RequestTarget& target) { return Arrived(method, target); },
                     [this](const std::string& method, const RequestTarget& target, Trouble trouble) {
                         return Reply(method, target, trouble);
                     }}) {}

    Trouble Arrived(const std::string& method, const RequestTarget& target) {
        const std::lock_guard<std::mutex> lock(mutex);
        requests.push_back(method + ' ' + target.text());
        Trouble trouble = Trouble::kNone;
        size_t longest = 0;  // of the paths that match, the longest counts
        for (const auto& [path, planned] : troubles) {
            if (path.size() < longest || target.path.compare(0, path.size(), path) != 0) continue;
            longest = path.size();
            trouble = planned;
        }
        return trouble;
    }

    WebAnswer Reply(const std::string& method, RequestTarget target, Trouble trouble) {
        UndoMove(target);
        switch (trouble) {
            case Trouble::kNotFound:
                return Page(404, "The page was not found.");
            case Trouble::kEmpty:
                return {};
            case Trouble::kRedirected: {
                WebAnswer answer;
                answer.status = 302;
                answer.location = std::string(SORVIK_WEB_SERVER) + kMovedPath + target.text();
                return answer;
            }
            default:
                break;
        }
        WebAnswer answer = site.Handle(method, target);
        // Empty lines at its end change no document and no database file.
        if (trouble == Trouble::kHuge && answer.body.size() < kHugeSize) answer.body.resize(kHugeSize, '\n');
        return answer;
    }

    mutable std::mutex mutex;
    std::map<std::string, Trouble> troubles;
    std::vector<std::string> requests;
    std::unique_ptr<Proxy> proxy;
    Site site;
    Transport transport;
};

WebServer::WebServer(const std::string& catalogue) : implementation_(std::make_unique<Implementation>(catalogue)) {}

WebServer::~WebServer() = default;

int WebServer::port() const {
    return implementation_->transport.port();
}

void WebServer::UseAsProxy() {
    if (!implementation_->proxy) implementation_->proxy = std::make_unique<Proxy>(port());
}

void WebServer::SetTrouble(const std::string& path, Trouble trouble) {
    const std::lock_guard<std::mutex> lock(implementation_->mutex);
    implementation_->troubles[path] = trouble;
}

void WebServer::Serve(const std::string& path, const std::string& body) {
    implementation_->site.Serve(path, body);
}

void WebServer::PublishWith(const std::string& elementName, const std::string& text) {
    implementation_->site.PublishWith(elementName, text);
}

void WebServer::PublishInstead(const std::string& body) {
    implementation_->site.PublishInstead(body);
}

void WebServer::Reset() {
    implementation_->site.Reset();
    const std::lock_guard<std::mutex> lock(implementation_->mutex);
    implementation_->troubles.clear();
}

std::vector<std::string> WebServer::requests() const {
    const std::lock_guard<std::mutex> lock(implementation_->mutex);
    return implementation_->requests;
}

}  // namespace bench
