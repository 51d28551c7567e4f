#include "DialogWindow.h"

#include <memory>
#include <type_traits>

#include "BenchTexts.h"
#include "GdiPlus.h"

namespace bench {
namespace {

constexpr int kPaintTurns = 200;
constexpr DWORD kPaintBound = 1000;

struct DeleteBitmap {
    void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
using Bitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, DeleteBitmap>;

struct DeleteMemoryDc {
    void operator()(HDC dc) const { DeleteDC(dc); }
};
using MemoryDc = std::unique_ptr<std::remove_pointer_t<HDC>, DeleteMemoryDc>;

class WindowDc {
 public:
    explicit WindowDc(HWND window) : window_(window), dc_(GetWindowDC(window)) {}
    ~WindowDc() {
        if (dc_) ReleaseDC(window_, dc_);
    }
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;
    HDC get() const { return dc_; }

 private:
    HWND window_;
    HDC dc_;
};

bool NeedsPainting(HWND window) {
    bool needs = GetUpdateRect(window, nullptr, FALSE) != FALSE;
    EnumChildWindows(
        window,
        [](HWND child, LPARAM found) -> BOOL {
            if (IsWindowVisible(child) && GetUpdateRect(child, nullptr, FALSE)) *reinterpret_cast<bool*>(found) = true;
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&needs));
    return needs;
}

// Windows paint when their loop is otherwise idle. After the last window has started, waits for the loop once more so
// that its painting has finished.
void WaitUntilPainted(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    for (int turn = 0; turn < kPaintTurns && NeedsPainting(window); ++turn)
        WaitForMessageLoop(window, kPaintBound);
    WaitForMessageLoop(window, kPaintBound);
}

Bitmap PictureOf(HWND window) {
    WaitUntilPainted(window);
    RECT frame;
    if (!GetWindowRect(window, &frame)) return nullptr;
    const int width = frame.right - frame.left;
    const int height = frame.bottom - frame.top;
    const WindowDc source(window);
    const MemoryDc target(CreateCompatibleDC(source.get()));
    Bitmap bitmap(CreateCompatibleBitmap(source.get(), width, height));
    if (!target || !bitmap) return nullptr;
    const HGDIOBJ previous = SelectObject(target.get(), bitmap.get());
    const BOOL copied = BitBlt(target.get(), 0, 0, width, height, source.get(), 0, 0, SRCCOPY);
    SelectObject(target.get(), previous);
    return copied ? std::move(bitmap) : nullptr;
}

}  // namespace

std::string SavePictureOf(HWND window, const std::string& file) {
    const Bitmap bitmap = PictureOf(window);
    if (!bitmap) return "the picture " + file + " could not be taken";
    const GdiPlus library;
    if (!library) return "GDI+, which writes the picture " + file + ", did not start";
    const CLSID png = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
    Gdiplus::Bitmap picture(bitmap.get(), nullptr);
    if (picture.Save(FromAnsi(file).c_str(), &png, nullptr) != Gdiplus::Ok)
        return "the picture " + file + " could not be written";
    return {};
}

}  // namespace bench
