// A connection of the server on which a trouble can be put: what is written passes through until the body is half out,
// and then the trouble happens. Only WinINet itself tells what a client sees of it, so the bytes really go that way.
// A reset is felt as a failure only by a client that waits in its read, so one is preceded by a pause.
#pragma once

#include <string>

#include "Site.h"
#include "httplib.h"

namespace bench {

class SpoiltStream : public httplib::Stream {
 public:
    // `stream` is borrowed for the life of this one.
    explicit SpoiltStream(httplib::Stream& stream) : stream_(stream) {}

    // From now on; troubles that are not the connection's business, but the answer's, change nothing.
    void Spoil(Trouble trouble);
    // These bytes are written, in pieces with pauses, in place of the answer.
    void WriteInstead(const std::string& bytes);
    // The trouble that was put on ends with a reset of the connection.
    static bool EndsWithReset(Trouble trouble) { return trouble == Trouble::kReset || trouble == Trouble::kRefused; }

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
    Trouble trouble_ = Trouble::kNone;
    bool ended_ = false;
    std::string head_;  // what was written up to the blank line, until the body begins
    bool inBody_ = false;
    size_t untilTrouble_ = 0;  // bytes of the body that still pass
};

}  // namespace bench
