#include "Util/ComTypes.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <string_view>

#include "Lib/Text.h"

// The server expects the terminating zero inside the counted length.
BStr::BStr(const char* text) {
    if (!text) return;
    const size_t length = std::strlen(text) + 1;
    reset(SysAllocStringLen(nullptr, static_cast<UINT>(length)));
    // A null BSTR would reach the server as an empty text, which is a different request.
    if (!get()) throw std::bad_alloc();
    const int written = MultiByteToWideChar(CP_ACP, 0, text, -1, get(), static_cast<int>(length));
    std::fill(get() + written, get() + length, L'\0');
}

std::string BStr::ToNarrow() const {
    if (!get()) return std::string();
    const std::wstring_view text(get(), SysStringLen(get()));
    return Narrow(text.substr(0, text.find(L'\0')));
}
