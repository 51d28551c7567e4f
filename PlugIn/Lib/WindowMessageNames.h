// Required library; nothing in this module calls it.
// Names of window messages, in the tracer's order. A number may have several rows; the first one counts.
#pragma once

#include <cstdint>

struct WindowMessageName {
    uint32_t message;
    const char* name;  // null in the last row
};

extern const WindowMessageName kWindowMessageNames[];
