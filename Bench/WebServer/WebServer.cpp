#include "WebServer.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <stdexcept>
#include <thread>

#include "httplib.h"

#include "BenchControl.h"
#include "Proxy.h"

namespace bench {
namespace {

constexpr std::chrono::milliseconds kStall(300);
constexpr std::chrono::milliseconds kBeforeReset(150);
constexpr std::chrono::milliseconds kBetweenPieces(20);

// A server connection whose response can be replaced by other bytes or by none.
class ReplaceableStream : public httplib::Stream {
 public:
    // Borrows `stream` for the lifetime of this object.
    explicit ReplaceableStream(httplib::Stream& stream) : stream_(stream) {}

    // Writes these bytes, in pieces with pauses, in place of the response.
    void WriteInstead(const std::string& bytes) {
        ended_ = true;
        for (size_t at = 0, piece = bytes.size() / 10 + 1; at < bytes.size(); at += piece) {
            if (!httplib::detail::write_data(stream_, &bytes[at], std::min(piece, bytes.size() - at))) return;
            std::this_thread::sleep_for(kBetweenPieces);
        }
    }

    bool is_readable() const override { return stream_.is_readable(); }
    bool is_writable() const override { return stream_.is_writable(); }
    ssize_t read(char* ptr, size_t size) override { return stream_.read(ptr, size); }
    ssize_t write(const char* ptr, size_t size) override { return ended_ ? -1 : stream_.write(ptr, size); }
    void get_remote_ip_and_port(std::string& ip, int& port) const override { stream_.get_remote_ip_and_port(ip, port); }
    void get_local_ip_and_port(std::string& ip, int& port) const override { stream_.get_local_ip_and_port(ip, port); }
    socket_t socket() const override { return stream_.socket(); }

 private:
    httplib::Stream& stream_;
    bool ended_ = false;
};

// Sends half of the body before the fault. The bytes are really sent, because only WinINet decides what its client
// sees.
void SetInterruptedContent(httplib::Response& response, const WebAnswer& answer, ServerFault fault) {
    const auto provide = [body = answer.body, fault](size_t offset, size_t, httplib::DataSink& sink) {
        const size_t half = body.size() / 2;
        if (offset < half) return sink.write(body.data(), half);
        if (fault != ServerFault::kStalled) return false;
        std::this_thread::sleep_for(kStall);
        return sink.write(body.data() + half, body.size() - half);
    };
    response.set_content_provider(answer.body.size(), answer.type.c_str(), provide);
}

// One request on its connection's thread, from arrival to the end of its response.
struct Exchange {
    RequestTarget target;
    ServerFault fault = ServerFault::kNone;
    std::optional<Call> call;
};

thread_local Exchange* currentExchange = nullptr;

void Arrive(Site& site, Exchange& exchange, const httplib::Request& request, ReplaceableStream& stream) {
    exchange.target = ParseRequestTarget(request.target);
    exchange.call.emplace(request.method.c_str(), exchange.target.text());
    exchange.fault = site.RecordRequest(request.method, exchange.target);
    if (exchange.call->fails()) exchange.fault = ServerFault::kRefused;
    if (exchange.fault == ServerFault::kRefused) stream.WriteInstead({});
    if (const auto raw = site.Raw(exchange.target)) stream.WriteInstead(*raw);
}

void Reply(Site& site, const httplib::Request& request, httplib::Response& response) {
    Exchange& exchange = *currentExchange;
    if (exchange.fault == ServerFault::kRefused) {
        exchange.call->result("dropped");
        return;
    }
    const WebAnswer answer = site.Answer(request.method, exchange.target, exchange.fault);
    response.status = answer.status;
    if (exchange.fault == ServerFault::kNone || exchange.fault == ServerFault::kNotFound)
        response.set_content(answer.body, answer.type.c_str());
    else
        SetInterruptedContent(response, answer, exchange.fault);
    exchange.call->result(answer.status);
}

// Closing a socket with a linger time of zero sends a reset instead of an orderly end. Waits first, because the client
// notices a reset only while waiting in a read.
void SendReset(socket_t sock) {
    std::this_thread::sleep_for(kBeforeReset);
    const linger noTime{1, 0};
    setsockopt(sock, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&noTime), sizeof noTime);
}

}  // namespace

// One request per connection, each a line of the call log. An injected fault closes the connection without a response.
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
    if (port_ <= 0) throw std::runtime_error("The web server cannot listen on any port.");
    thread_ = std::thread([this] { listen_after_bind(); });
    // stop() does nothing while the listener is not running yet, so wait before returning.
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
            ReplaceableStream replaceable(stream);
            return process_request(replaceable, closeConnection, connectionClosed,
                                   [&](httplib::Request& request) { Arrive(site_, exchange, request, replaceable); });
        });
    currentExchange = nullptr;
    if (exchange.fault == ServerFault::kReset || exchange.fault == ServerFault::kRefused)
        SendReset(sock);
    else
        httplib::detail::shutdown_socket(sock);
    httplib::detail::close_socket(sock);
    return answered;
}

WebServer::WebServer(const std::string& catalogue)
    : Site(catalogue, SORVIK_WEB_SERVER), listener_(std::make_unique<Listener>(*this)) {}

WebServer::~WebServer() = default;

void WebServer::UseAsProxy() const {
    UseProxy("127.0.0.1:" + std::to_string(listener_->port()));
}

}  // namespace bench
