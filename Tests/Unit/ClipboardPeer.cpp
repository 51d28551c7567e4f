// The other side of the clipboard, in a process of its own and by plain Windows calls:
//   clipboard_peer write FORMAT HEX   puts these bytes on the emptied clipboard
//   clipboard_peer read FORMAT COUNT  prints the first COUNT bytes of what is there, in hexadecimal
// Ends with 0 when it did so, with the number of the step that failed otherwise.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

int Write(UINT format, const std::string& hex) {
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, hex.size() / 2);
    auto* bytes = static_cast<unsigned char*>(GlobalLock(block));
    if (!bytes) return 2;
    for (size_t i = 0; i < hex.size() / 2; ++i)
        bytes[i] = static_cast<unsigned char>(std::stoi(hex.substr(2 * i, 2), nullptr, 16));
    GlobalUnlock(block);
    if (!EmptyClipboard()) return 3;
    return SetClipboardData(format, block) ? 0 : 4;
}

int Read(UINT format, size_t count) {
    const HGLOBAL block = GetClipboardData(format);
    if (!block) return 5;
    const auto* bytes = static_cast<const unsigned char*>(GlobalLock(block));
    if (!bytes || GlobalSize(block) < count) return 6;
    for (size_t i = 0; i < count; ++i)
        std::printf("%02X", bytes[i]);
    GlobalUnlock(block);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) return 1;
    const UINT format = RegisterClipboardFormatA(argv[2]);
    if (!OpenClipboard(nullptr)) return 7;
    const int result =
        std::strcmp(argv[1], "write") == 0 ? Write(format, argv[3]) : Read(format, std::strtoul(argv[3], nullptr, 10));
    CloseClipboard();
    return result;
}
