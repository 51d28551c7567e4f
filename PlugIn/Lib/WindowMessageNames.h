// Names of window messages, in the tracer's order. A number may stand in several rows: the first one counts.
#pragma once

#include <cstdint>

struct WindowMessageName {
    uint32_t message;
    const char* name;  // null in the row that ends the table
};

extern const WindowMessageName kWindowMessageNames[];
