#include "SpoiltStream.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <thread>

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

}  // namespace

void SpoiltStream::Spoil(Trouble trouble) {
    const bool ofConnection = EndsWithReset(trouble) || trouble == Trouble::kTruncated || trouble == Trouble::kStalled;
    trouble_ = ofConnection ? trouble : Trouble::kNone;
}

ssize_t SpoiltStream::write(const char* ptr, size_t size) {
    if (ended_) return -1;
    if (trouble_ == Trouble::kNone) return stream_.write(ptr, size);
    if (trouble_ == Trouble::kRefused) return BreakOff();
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

ssize_t SpoiltStream::WriteHalf(const char* ptr, size_t size) {
    const size_t passing = size < untilTrouble_ ? size : untilTrouble_;
    if (!WriteAll(ptr, passing)) return -1;
    untilTrouble_ -= passing;
    if (passing == size) return static_cast<ssize_t>(size);
    if (trouble_ != Trouble::kStalled) return BreakOff();
    std::this_thread::sleep_for(kStall);
    trouble_ = Trouble::kNone;
    return WriteAll(ptr + passing, size - passing) ? static_cast<ssize_t>(size) : -1;
}

void SpoiltStream::WriteInstead(const std::string& bytes) {
    ended_ = true;
    const size_t piece = bytes.size() / 10 + 1;
    for (size_t at = 0; at < bytes.size() && WriteAll(&bytes[at], std::min(piece, bytes.size() - at)); at += piece)
        std::this_thread::sleep_for(kBetweenPieces);
}

ssize_t SpoiltStream::BreakOff() const {
    if (EndsWithReset(trouble_)) std::this_thread::sleep_for(kBeforeReset);
    return -1;
}

bool SpoiltStream::WriteAll(const char* ptr, size_t size) {
    while (size > 0) {
        const ssize_t written = stream_.write(ptr, size);
        if (written <= 0) return false;
        ptr += written;
        size -= static_cast<size_t>(written);
    }
    return true;
}

}  // namespace bench
