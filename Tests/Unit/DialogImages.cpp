#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "DialogFixture.h"
#include "ImportPatch.h"
#include "TestFiles.h"
#include "Util/PDialogControlButtons.h"

namespace {

constexpr int kControl = 1200;
constexpr char kIconResource[] = "#115";

// Three pixels wide and two high, 24 bits each.
std::string BitmapFile() {
    constexpr int kWidth = 3, kHeight = 2, kRow = 12;
    BITMAPFILEHEADER head = {};
    head.bfType = 0x4D42;
    head.bfOffBits = sizeof head + sizeof(BITMAPINFOHEADER);
    head.bfSize = head.bfOffBits + kRow * kHeight;
    BITMAPINFOHEADER info = {};
    info.biSize = sizeof info;
    info.biWidth = kWidth;
    info.biHeight = kHeight;
    info.biPlanes = 1;
    info.biBitCount = 24;
    return std::string(reinterpret_cast<const char*>(&head), sizeof head) +
           std::string(reinterpret_cast<const char*>(&info), sizeof info) + std::string(kRow * kHeight, '\x7F');
}

// The calls that bring an image into a control: "load TYPE FLAGS", with "module" where its resources are asked, and
// "set TYPE IMAGE".
std::vector<std::string> calls;

HANDLE WINAPI RecordLoad(HINSTANCE module, LPCSTR, UINT type, int, int, UINT flags) {
    calls.push_back((module ? "load module " : "load ") + std::to_string(type) + " " + std::to_string(flags));
    return reinterpret_cast<HANDLE>(0x51);
}

LRESULT WINAPI RecordSet(HWND, UINT message, WPARAM type, LPARAM image) {
    if (message == STM_SETIMAGE || message == BM_SETIMAGE)
        calls.push_back("set " + std::to_string(type) + " " + std::to_string(image));
    return 0;
}

LONG WidthOf(LRESULT bitmap) {
    BITMAP facts = {};
    GetObjectA(reinterpret_cast<HGDIOBJ>(bitmap), sizeof facts, &facts);
    return facts.bmWidth;
}

class DialogImages : public testing::Test {
 protected:
    DialogImages() { WriteWholeFile(bitmap_, BitmapFile()); }

    // A control with this binder, shown; the extended style replaces what the dialog gave the control.
    template <class Binder>
    HWND Show(const char* className, DWORD style, LONG extendedStyle, const std::string& name) {
        dialog_ = std::make_unique<BoundDialog>();
        dialog_->Open({{className, style, kControl}}, [&] {
            SetWindowLongA(dialog_->GetControl(kControl), GWL_EXSTYLE, extendedStyle);
            dialog_->Bind<Binder>(kControl, name);
        });
        return dialog_->GetControl(kControl);
    }
    void ShowAgain() { dialog_->ToDialog(-1); }
    const std::string& bitmap() const { return bitmap_; }
    const std::string& folder() const { return folder_.path(); }

 private:
    const TestFolder folder_;
    const std::string bitmap_ = folder_.file("duct.bmp");
    std::unique_ptr<BoundDialog> dialog_;
};

}  // namespace

TEST_F(DialogImages, ButtonsLoadWhatTheirStyleAsksFor) {
    const HWND fromFile = Show<PDialogControlButton>("BUTTON", BS_BITMAP, 0, bitmap());
    const LRESULT first = SendMessageA(fromFile, BM_GETIMAGE, IMAGE_BITMAP, 0);
    EXPECT_EQ(WidthOf(first), 3);
    ShowAgain();
    EXPECT_EQ(WidthOf(SendMessageA(fromFile, BM_GETIMAGE, IMAGE_BITMAP, 0)), 3);

    const HWND fromModule = Show<PDialogControlButton>("BUTTON", BS_ICON, 0, kIconResource);
    EXPECT_NE(SendMessageA(fromModule, BM_GETIMAGE, IMAGE_ICON, 0), 0);
    EXPECT_EQ(WidthOf(first), 0) << "an image ends with its binder";

    // The extended style goes before the style: an icon is looked for, and a button for bitmaps gets none.
    const HWND extended = Show<PDialogControlButton>("BUTTON", BS_BITMAP, BS_ICON, bitmap());
    EXPECT_EQ(SendMessageA(extended, BM_GETIMAGE, IMAGE_BITMAP, 0), 0);
}

TEST_F(DialogImages, ButtonsWithoutAnImageShowTheirText) {
    for (const DWORD style : {BS_PUSHBUTTON, BS_BITMAP}) {
        const HWND button = Show<PDialogControlButton>("BUTTON", style, 0, "no-such-image");
        char text[64] = "";
        GetWindowTextA(button, text, sizeof text);
        EXPECT_STREQ(text, "no-such-image") << style;
    }
}

TEST_F(DialogImages, StaticImagesGoByTheExtendedStyle) {
    const HWND bitmapControl = Show<PDialogControlStaticImage>("STATIC", SS_BITMAP, 0x04, bitmap());
    EXPECT_EQ(WidthOf(SendMessageA(bitmapControl, STM_GETIMAGE, IMAGE_BITMAP, 0)), 3);
    const HWND iconControl = Show<PDialogControlStaticImage>("STATIC", SS_ICON, 0x01, kIconResource);
    EXPECT_NE(SendMessageA(iconControl, STM_GETIMAGE, IMAGE_ICON, 0), 0);
    const HWND plain = Show<PDialogControlStaticImage>("STATIC", SS_BITMAP, 0, bitmap());
    EXPECT_EQ(SendMessageA(plain, STM_GETIMAGE, IMAGE_BITMAP, 0), 0) << "the style alone asks for nothing";
}

TEST_F(DialogImages, IconsAndBitmapsAreLoadedAndSetAlike) {
    const ImportPatch load("LoadImageA", RecordLoad), set("SendMessageA", RecordSet);
    const std::vector<std::string> icon = {"load 1 4112", "set 1 81"}, picture = {"load 0 4112", "set 0 81"};
    for (const auto& [bits, expected] :
         {std::pair{0x01, icon}, {0x03, icon}, {0x02, picture}, {0x04, picture}, {0x0C, picture}, {0x0E, picture}}) {
        calls.clear();
        Show<PDialogControlStaticImage>("STATIC", SS_BITMAP, bits, bitmap());
        EXPECT_EQ(calls, expected) << bits;
    }
    // A folder of the image's name is no file of it.
    for (const std::string& name : {folder(), std::string("no such file")}) {
        calls.clear();
        Show<PDialogControlStaticImage>("STATIC", SS_BITMAP, SS_BITMAP, name);
        Show<PDialogControlButton>("BUTTON", BS_ICON, 0, name);
        EXPECT_EQ(calls,
                  (std::vector<std::string>{"load module 0 4096", "set 0 81", "load module 1 4096", "set 1 81"}));
    }
}
