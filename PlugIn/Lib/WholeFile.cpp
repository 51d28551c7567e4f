#include "Lib/WholeFile.h"

#include <algorithm>
#include <cstdio>

#include "Lib/Handles.h"

WholeFile ReadWholeFile(const char* path, std::string& content, size_t limit) {
    const StdioFile file(std::fopen(path, "rb"));
    if (!file) return WholeFile::kNotOpened;
    std::fseek(file.get(), 0, SEEK_END);
    const long size = std::ftell(file.get());
    std::fseek(file.get(), 0, SEEK_SET);
    if (size < 0) return WholeFile::kNotRead;
    content.resize(std::min(static_cast<size_t>(size), limit));
    const size_t length = std::fread(content.data(), 1, content.size(), file.get());
    return length == content.size() ? WholeFile::kRead : WholeFile::kNotRead;
}
