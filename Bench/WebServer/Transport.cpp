#include "SpoiltStream.h"
#include "Transport.h"

#include <optional>
#include <stdexcept>
#include <thread>
#include <utility>

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

class Listener : public httplib::Server {
 public:
    explicit Listener(TransportOwner owner) : owner_(std::move(owner)) {
        set_keep_alive_max_count(1);
        const auto handle = [this](const httplib::Request& request, httplib::Response& response) {
            Reply(request, response);
        };
        Get(".*", handle);
        Post(".*", handle);
    }

 private:
    bool process_and_close_socket(socket_t sock) override {
        Exchange exchange;
        currentExchange = &exchange;
        const bool answered = httplib::detail::process_server_socket(
            svr_sock_, sock, keep_alive_max_count_, keep_alive_timeout_sec_, read_timeout_sec_, read_timeout_usec_,
            write_timeout_sec_, write_timeout_usec_,
            [&](httplib::Stream& stream, bool closeConnection, bool& connectionClosed) {
                SpoiltStream spoilt(stream);
                return process_request(spoilt, closeConnection, connectionClosed,
                                       [&](httplib::Request& request) { Arrive(exchange, request, spoilt); });
            });
        currentExchange = nullptr;
        if (SpoiltStream::EndsWithReset(exchange.trouble))
            Reset(sock);
        else
            httplib::detail::shutdown_socket(sock);
        httplib::detail::close_socket(sock);
        return answered;
    }

    // Closing with no time to linger sends a reset instead of an orderly end.
    static void Reset(socket_t sock) {
        const linger noTime{1, 0};
        setsockopt(sock, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&noTime), sizeof noTime);
    }

    void Arrive(Exchange& exchange, const httplib::Request& request, SpoiltStream& stream) {
        exchange.target = ParseRequestTarget(request.target);
        exchange.call.emplace(request.method.c_str(), exchange.target.text());
        exchange.trouble = owner_.arrived(request.method, exchange.target);
        if (exchange.call->fails()) exchange.trouble = Trouble::kRefused;
        stream.Spoil(exchange.trouble);
    }

    void Reply(const httplib::Request& request, httplib::Response& response) {
        Exchange& exchange = *currentExchange;
        if (exchange.trouble == Trouble::kRefused) {
            exchange.call->result("dropped");
            return;
        }
        const WebAnswer answer = owner_.answer(request.method, exchange.target, exchange.trouble);
        response.status = answer.status;
        response.set_content(answer.body, answer.type.c_str());
        if (!answer.location.empty()) response.set_header("Location", answer.location);
        exchange.call->result(answer.status);
    }

    TransportOwner owner_;
};

}  // namespace

struct Transport::Implementation {
    explicit Implementation(TransportOwner owner) : listener(std::move(owner)) {
        port = listener.bind_to_any_port("127.0.0.1");
        if (port <= 0) throw std::runtime_error("The web server finds no port to listen on.");
        thread = std::thread([this] { listener.listen_after_bind(); });
        // stop() does nothing to a listener that is not running yet, so nobody may call it before.
        while (!listener.is_running())
            std::this_thread::yield();
    }

    ~Implementation() {
        listener.stop();
        thread.join();
    }

    Listener listener;
    int port = 0;
    std::thread thread;
};

Transport::Transport(TransportOwner owner) : implementation_(std::make_unique<Implementation>(std::move(owner))) {}

Transport::~Transport() = default;

int Transport::port() const {
    return implementation_->port;
}

}  // namespace bench
