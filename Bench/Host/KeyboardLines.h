// Lines typed at standard input, read on a thread of their own so that the windows of the waiting thread stay alive:
// Next waits for a line and handles window messages meanwhile. The reading thread outlives the object until its line
// comes or the process ends.
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

    // False at the end of the input.
    bool Next(std::string& line);
    // A line as if it had been typed.
    void Type(const std::string& line);

 private:
    struct Queue;
    std::shared_ptr<Queue> queue_;
};

}  // namespace bench
