// Reads lines from standard input on a separate thread, so that the waiting thread's windows keep responding: Next
// handles window messages while it waits. The reading thread outlives the object until it has read a line or the
// process ends.
#pragma once

#include <memory>
#include <string>

namespace bench {

class KeyboardLines {
 public:
    KeyboardLines();
    ~KeyboardLines();
    KeyboardLines(const KeyboardLines&) = delete;
    KeyboardLines& operator=(const KeyboardLines&) = delete;

    // Returns false at the end of the input.
    bool Next(std::string& line);
    // Adds a line as if it had been typed.
    void Type(const std::string& line);

 private:
    struct Queue;
    std::shared_ptr<Queue> queue_;
};

}  // namespace bench
