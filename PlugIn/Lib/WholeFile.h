// Reads a file as a whole.
#pragma once

#include <cstddef>
#include <string>

enum class WholeFile { kRead, kNotOpened, kNotRead };

// Reads the file's first `limit` bytes, or all of a shorter one. Throws std::bad_alloc when memory is exhausted.
// `content` is unspecified unless the result is kRead.
WholeFile ReadWholeFile(const char* path, std::string& content, size_t limit = std::string::npos);
