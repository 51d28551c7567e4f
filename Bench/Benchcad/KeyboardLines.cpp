#include "KeyboardLines.h"

#include <windows.h>

#include <deque>
#include <iostream>
#include <mutex>
#include <thread>

namespace bench {

struct KeyboardLines::Queue {
    std::mutex mutex;
    std::deque<std::string> lines;
    bool ended = false;
    HANDLE changed = CreateEventW(nullptr, FALSE, FALSE, nullptr);

    Queue() = default;
    ~Queue() { CloseHandle(changed); }
    Queue(const Queue&) = delete;
    Queue& operator=(const Queue&) = delete;

    void Add(const std::string& line) {
        std::lock_guard<std::mutex> lock(mutex);
        lines.push_back(line);
        SetEvent(changed);
    }

    void Read() {
        std::string line;
        while (std::getline(std::cin, line)) {
            if (!line.empty() && line.back() == '\r') line.pop_back();
            Add(line);
        }
        std::lock_guard<std::mutex> lock(mutex);
        ended = true;
        SetEvent(changed);
    }
};

KeyboardLines::KeyboardLines() : queue_(std::make_shared<Queue>()) {
    std::thread([queue = queue_] { queue->Read(); }).detach();
}

KeyboardLines::~KeyboardLines() = default;

void KeyboardLines::Type(const std::string& line) {
    queue_->Add(line);
}

bool KeyboardLines::Next(std::string& line) {
    for (;;) {
        {
            std::lock_guard<std::mutex> lock(queue_->mutex);
            if (!queue_->lines.empty()) {
                line = queue_->lines.front();
                queue_->lines.pop_front();
                return true;
            }
            if (queue_->ended) return false;
        }
        // The only wait without a limit: the user may take any time.
        MsgWaitForMultipleObjects(1, &queue_->changed, FALSE, INFINITE, QS_ALLINPUT);
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

}  // namespace bench
