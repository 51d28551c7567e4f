#include "SpoiltStream.h"
#include "WebServer.h"

#include <optional>
#include <stdexcept>
#include <thread>

#include "BenchControl.h"

namespace bench {
namespace {

// One request on its connection's thread, from its arrival to the end of its answer.
struct Exchange {
    RequestTarget target;
    Trouble trouble = Trouble::kNone;
    std::optional<Call> call;
};

thread_local Exchange* currentExchange = nullptr;

void Arrive(Site& site, Exchange& exchange, const httplib::Request& request, SpoiltStream& stream) {
    exchange.target = ParseRequestTarget(request.target);
    exchange.call.emplace(request.method.c_str(), exchange.target.text());
    exchange.trouble = site.Arrived(request.method, exchange.target);
    if (exchange.call->fails()) exchange.trouble = Trouble::kRefused;
    stream.Spoil(exchange.trouble);
    if (const auto raw = site.Raw(exchange.target)) stream.WriteInstead(*raw);
}

void Reply(Site& site, const httplib::Request& request, httplib::Response& response) {
    Exchange& exchange = *currentExchange;
    if (exchange.trouble == Trouble::kRefused) {
        exchange.call->result("dropped");
        return;
    }
    const WebAnswer answer = site.Answer(request.method, exchange.target, exchange.trouble);
    response.status = answer.status;
    response.set_content(answer.body, answer.type.c_str());
    if (!answer.location.empty()) response.set_header("Location", answer.location);
    exchange.call->result(answer.status);
}

// Closing with no time to linger sends a reset instead of an orderly end.
void SendReset(socket_t sock) {
    const linger noTime{1, 0};
    setsockopt(sock, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&noTime), sizeof noTime);
}

}  // namespace

// One request a connection, each a line of the journal. A planned failure closes the connection without an answer.
class WebServer::Listener : private httplib::Server {
 public:
    explicit Listener(Site& site);
    ~Listener() override;

    int port() const { return port_; }

 private:
    bool process_and_close_socket(socket_t sock) override;

    Site& site_;
    int port_ = 0;
    std::thread thread_;
};

WebServer::Listener::Listener(Site& site) : site_(site) {
    set_keep_alive_max_count(1);
    set_write_timeout(60);
    const auto handle = [&site](const httplib::Request& request, httplib::Response& response) {
        Reply(site, request, response);
    };
    Get(".*", handle);
    Post(".*", handle);
    port_ = bind_to_any_port("127.0.0.1");
    if (port_ <= 0) throw std::runtime_error("The web server finds no port to listen on.");
    thread_ = std::thread([this] { listen_after_bind(); });
    // stop() does nothing to a listener that is not running yet, so nobody may call it before.
    while (!is_running())
        std::this_thread::yield();
}

WebServer::Listener::~Listener() {
    stop();
    thread_.join();
}

bool WebServer::Listener::process_and_close_socket(socket_t sock) {
    Exchange exchange;
    currentExchange = &exchange;
    const bool answered = httplib::detail::process_server_socket(
        svr_sock_, sock, keep_alive_max_count_, keep_alive_timeout_sec_, read_timeout_sec_, read_timeout_usec_,
        write_timeout_sec_, write_timeout_usec_,
        [&](httplib::Stream& stream, bool closeConnection, bool& connectionClosed) {
            SpoiltStream spoilt(stream);
            return process_request(spoilt, closeConnection, connectionClosed,
                                   [&](httplib::Request& request) { Arrive(site_, exchange, request, spoilt); });
        });
    currentExchange = nullptr;
    if (SpoiltStream::EndsWithReset(exchange.trouble))
        SendReset(sock);
    else
        httplib::detail::shutdown_socket(sock);
    httplib::detail::close_socket(sock);
    return answered;
}

WebServer::WebServer(const std::string& catalogue)
    : Site(ReadCatalogue(catalogue), SORVIK_WEB_SERVER), listener_(std::make_unique<Listener>(*this)) {}

WebServer::~WebServer() = default;

// WinINet under Wine takes its proxy from the environment variable http_proxy, which it reads through the C runtime;
// each runtime of the process keeps its own copy of the environment, so all of them are told.
void WebServer::UseAsProxy() const {
    const std::string address = "127.0.0.1:" + std::to_string(listener_->port());
    for (const char* runtime : {"ucrtbase.dll", "msvcrt.dll"}) {
        const HMODULE module = LoadLibraryA(runtime);
        if (!module) continue;
        using PutEnvironment = int(__cdecl*)(const char*);
        const FARPROC putEnvironment = GetProcAddress(module, "_putenv");
        if (putEnvironment)
            reinterpret_cast<PutEnvironment>(reinterpret_cast<void*>(putEnvironment))(
                ("http_proxy=" + address).c_str());
    }
    SetEnvironmentVariableA("http_proxy", address.c_str());
}

}  // namespace bench
