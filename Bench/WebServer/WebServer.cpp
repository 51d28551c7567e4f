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

// A connection of the server on which a trouble can be put: what is written passes through until the body is half out,
// and then the trouble happens. Only WinINet itself tells what a client sees of it, so the bytes really go that way.
// A reset is felt as a failure only by a client that waits in its read, so one is preceded by a pause.
class FaultyStream : public httplib::Stream {
 public:
    // `stream` is borrowed for the life of this one.
    explicit FaultyStream(httplib::Stream& stream) : stream_(stream) {}

    // From now on; troubles that are not the connection's business, but the answer's, change nothing.
    void Spoil(ServerFault trouble);
    // These bytes are written, in pieces with pauses, in place of the answer.
    void WriteInstead(const std::string& bytes);
    // The trouble that was put on ends with a reset of the connection.
    static bool EndsWithReset(ServerFault trouble) {
        return trouble == ServerFault::kReset || trouble == ServerFault::kRefused;
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
    // Nothing more is written: -1, as the stream's own failures.
    ssize_t BreakOff() const;

    httplib::Stream& stream_;
    ServerFault trouble_ = ServerFault::kNone;
    bool ended_ = false;
    std::string head_;  // what was written up to the blank line, until the body begins
    bool inBody_ = false;
    size_t untilTrouble_ = 0;  // bytes of the body that still pass
};

void FaultyStream::Spoil(ServerFault trouble) {
    const bool ofConnection =
        EndsWithReset(trouble) || trouble == ServerFault::kTruncated || trouble == ServerFault::kStalled;
    trouble_ = ofConnection ? trouble : ServerFault::kNone;
}

ssize_t FaultyStream::write(const char* ptr, size_t size) {
    if (ended_) return -1;
    if (trouble_ == ServerFault::kNone) return stream_.write(ptr, size);
    if (trouble_ == ServerFault::kRefused) return BreakOff();
    if (inBody_) return WriteHalf(ptr, size);

    const size_t before = head_.size();
    head_.append(ptr, size);
    const size_t blankLine = head_.find("\r\n\r\n");
    if (blankLine == std::string::npos) return WriteAll(ptr, size) ? static_cast<ssize_t>(size) : -1;
    inBody_ = true;
    untilTrouble_ = AnnouncedLength(head_) / 2;
    const size_t ofHead = blankLine + 4 - before;
    if (!WriteAll(ptr, ofHead)) return -1;
    if (ofHead == size) return static_cast<ssize_t>(size);
    return WriteHalf(ptr + ofHead, size - ofHead) < 0 ? -1 : static_cast<ssize_t>(size);
}

ssize_t FaultyStream::WriteHalf(const char* ptr, size_t size) {
    const size_t passing = size < untilTrouble_ ? size : untilTrouble_;
    if (!WriteAll(ptr, passing)) return -1;
    untilTrouble_ -= passing;
    if (passing == size) return static_cast<ssize_t>(size);
    if (trouble_ != ServerFault::kStalled) return BreakOff();
    std::this_thread::sleep_for(kStall);
    trouble_ = ServerFault::kNone;
    return WriteAll(ptr + passing, size - passing) ? static_cast<ssize_t>(size) : -1;
}

void FaultyStream::WriteInstead(const std::string& bytes) {
    ended_ = true;
    const size_t piece = bytes.size() / 10 + 1;
    for (size_t at = 0; at < bytes.size() && WriteAll(&bytes[at], std::min(piece, bytes.size() - at)); at += piece)
        std::this_thread::sleep_for(kBetweenPieces);
}

ssize_t FaultyStream::BreakOff() const {
    if (EndsWithReset(trouble_)) std::this_thread::sleep_for(kBeforeReset);
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

// One request on its connection's thread, from its arrival to the end of its answer.
struct Exchange {
    RequestTarget target;
    ServerFault trouble = ServerFault::kNone;
    std::optional<Call> call;
};

thread_local Exchange* currentExchange = nullptr;

void Arrive(Site& site, Exchange& exchange, const httplib::Request& request, FaultyStream& stream) {
    exchange.target = ParseRequestTarget(request.target);
    exchange.call.emplace(request.method.c_str(), exchange.target.text());
    exchange.trouble = site.Arrived(request.method, exchange.target);
    if (exchange.call->fails()) exchange.trouble = ServerFault::kRefused;
    stream.Spoil(exchange.trouble);
    if (const auto raw = site.Raw(exchange.target)) stream.WriteInstead(*raw);
}

void Reply(Site& site, const httplib::Request& request, httplib::Response& response) {
    Exchange& exchange = *currentExchange;
    if (exchange.trouble == ServerFault::kRefused) {
        exchange.call->result("dropped");
        return;
    }
    const WebAnswer answer = site.Answer(request.method, exchange.target, exchange.trouble);
    response.status = answer.status;
    response.set_content(answer.body, answer.type.c_str());
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
            FaultyStream spoilt(stream);
            return process_request(spoilt, closeConnection, connectionClosed,
                                   [&](httplib::Request& request) { Arrive(site_, exchange, request, spoilt); });
        });
    currentExchange = nullptr;
    if (FaultyStream::EndsWithReset(exchange.trouble))
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
