#include "WebServer.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
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

size_t AnnouncedLength(const std::string& head) {
    static const std::string name = "Content-Length:";
    const size_t at = head.find(name);
    return at == std::string::npos ? 0 : std::strtoul(head.c_str() + at + name.size(), nullptr, 10);
}

// A server connection with an optional fault: bytes are passed on until half of the body is sent, and then the fault
// happens. The bytes are really sent, because only WinINet decides what its client sees. A reset is preceded by a
// pause, because the client notices it only while waiting in a read.
class FaultyStream : public httplib::Stream {
 public:
    // Borrows `stream` for the lifetime of this object.
    explicit FaultyStream(httplib::Stream& stream) : stream_(stream) {}

    // Sets the fault. Faults of the response rather than the connection have no effect here.
    void Inject(ServerFault fault);
    // Writes these bytes, in pieces with pauses, in place of the response.
    void WriteInstead(const std::string& bytes);
    // Whether the fault ends with a reset of the connection.
    static bool EndsWithReset(ServerFault fault) {
        return fault == ServerFault::kReset || fault == ServerFault::kRefused;
    }

    bool is_readable() const override { return stream_.is_readable(); }
    bool is_writable() const override { return stream_.is_writable(); }
    ssize_t read(char* ptr, size_t size) override { return stream_.read(ptr, size); }
    ssize_t write(const char* ptr, size_t size) override;
    void get_remote_ip_and_port(std::string& ip, int& port) const override { stream_.get_remote_ip_and_port(ip, port); }
    void get_local_ip_and_port(std::string& ip, int& port) const override { stream_.get_local_ip_and_port(ip, port); }
    socket_t socket() const override { return stream_.socket(); }

 private:
    bool WriteAll(const char* ptr, size_t size);
    ssize_t WriteHalf(const char* ptr, size_t size);
    // Ends the output; returns -1 like the stream's own failures.
    ssize_t BreakOff() const;

    httplib::Stream& stream_;
    ServerFault fault_ = ServerFault::kNone;
    bool ended_ = false;
    std::string head_;  // bytes written up to the blank line before the body
    bool inBody_ = false;
    size_t untilFault_ = 0;  // bytes of the body to pass on before the fault
};

void FaultyStream::Inject(ServerFault fault) {
    const bool ofConnection =
        EndsWithReset(fault) || fault == ServerFault::kTruncated || fault == ServerFault::kStalled;
    fault_ = ofConnection ? fault : ServerFault::kNone;
}

ssize_t FaultyStream::write(const char* ptr, size_t size) {
    if (ended_) return -1;
    if (fault_ == ServerFault::kNone) return stream_.write(ptr, size);
    if (fault_ == ServerFault::kRefused) return BreakOff();
    if (inBody_) return WriteHalf(ptr, size);

    const size_t before = head_.size();
    head_.append(ptr, size);
    const size_t blankLine = head_.find("\r\n\r\n");
    if (blankLine == std::string::npos) return WriteAll(ptr, size) ? static_cast<ssize_t>(size) : -1;
    inBody_ = true;
    untilFault_ = AnnouncedLength(head_) / 2;
    const size_t ofHead = blankLine + 4 - before;
    if (!WriteAll(ptr, ofHead)) return -1;
    if (ofHead == size) return static_cast<ssize_t>(size);
    return WriteHalf(ptr + ofHead, size - ofHead) < 0 ? -1 : static_cast<ssize_t>(size);
}

ssize_t FaultyStream::WriteHalf(const char* ptr, size_t size) {
    const size_t passing = size < untilFault_ ? size : untilFault_;
    if (!WriteAll(ptr, passing)) return -1;
    untilFault_ -= passing;
    if (passing == size) return static_cast<ssize_t>(size);
    if (fault_ != ServerFault::kStalled) return BreakOff();
    std::this_thread::sleep_for(kStall);
    fault_ = ServerFault::kNone;
    return WriteAll(ptr + passing, size - passing) ? static_cast<ssize_t>(size) : -1;
}

void FaultyStream::WriteInstead(const std::string& bytes) {
    ended_ = true;
    const size_t piece = bytes.size() / 10 + 1;
    for (size_t at = 0; at < bytes.size() && WriteAll(&bytes[at], std::min(piece, bytes.size() - at)); at += piece)
        std::this_thread::sleep_for(kBetweenPieces);
}

ssize_t FaultyStream::BreakOff() const {
    if (EndsWithReset(fault_)) std::this_thread::sleep_for(kBeforeReset);
    return -1;
}

bool FaultyStream::WriteAll(const char* ptr, size_t size) {
    while (size > 0) {
        const ssize_t written = stream_.write(ptr, size);
        if (written <= 0) return false;
        ptr += written;
        size -= static_cast<size_t>(written);
    }
    return true;
}

// One request on its connection's thread, from arrival to the end of its response.
struct Exchange {
    RequestTarget target;
    ServerFault fault = ServerFault::kNone;
    std::optional<Call> call;
};

thread_local Exchange* currentExchange = nullptr;

void Arrive(Site& site, Exchange& exchange, const httplib::Request& request, FaultyStream& stream) {
    exchange.target = ParseRequestTarget(request.target);
    exchange.call.emplace(request.method.c_str(), exchange.target.text());
    exchange.fault = site.RecordRequest(request.method, exchange.target);
    if (exchange.call->fails()) exchange.fault = ServerFault::kRefused;
    stream.Inject(exchange.fault);
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
    response.set_content(answer.body, answer.type.c_str());
    exchange.call->result(answer.status);
}

// Closing a socket with a linger time of zero sends a reset instead of an orderly end.
void SendReset(socket_t sock) {
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
            FaultyStream faulty(stream);
            return process_request(faulty, closeConnection, connectionClosed,
                                   [&](httplib::Request& request) { Arrive(site_, exchange, request, faulty); });
        });
    currentExchange = nullptr;
    if (FaultyStream::EndsWithReset(exchange.fault))
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
