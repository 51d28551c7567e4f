#include <windows.h>

#include <gtest/gtest.h>

#include <string>

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

UINT askedType = 0;
HANDLE WINAPI RecordType(HINSTANCE, LPCSTR, UINT type, int, int, UINT) {
    askedType = type;
    return nullptr;
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
    HWND Show(const wchar_t* className, DWORD style, LONG extendedStyle, const std::string& name) {
        dialog_ = std::make_unique<BoundDialog>([&](BoundDialog& self) {
            SetWindowLongA(self.GetControl(kControl), GWL_EXSTYLE, extendedStyle);
            self.Bind<Binder>(kControl, kControlNormal, "", name);
        });
        dialog_->Open(DialogTemplate(L"Images").Add(className, style, kControl, L"", 0, 3));
        return dialog_->GetControl(kControl);
    }
    void ShowAgain() { dialog_->ToDialog(-1); }
    const std::string& bitmap() const { return bitmap_; }

 private:
    const TestFolder folder_;
    const std::string bitmap_ = folder_.file("duct.bmp");
    std::unique_ptr<BoundDialog> dialog_;
};

}  // namespace

TEST_F(DialogImages, ButtonsLoadWhatTheirStyleAsksFor) {
    const HWND fromFile = Show<PDialogControlButton>(L"BUTTON", BS_BITMAP, 0, bitmap());
    const LRESULT first = SendMessageA(fromFile, BM_GETIMAGE, IMAGE_BITMAP, 0);
    EXPECT_EQ(WidthOf(first), 3);
    ShowAgain();
    EXPECT_EQ(WidthOf(SendMessageA(fromFile, BM_GETIMAGE, IMAGE_BITMAP, 0)), 3);

    const HWND fromModule = Show<PDialogControlButton>(L"BUTTON", BS_ICON, 0, kIconResource);
    EXPECT_NE(SendMessageA(fromModule, BM_GETIMAGE, IMAGE_ICON, 0), 0);
    EXPECT_EQ(WidthOf(first), 0) << "an image ends with its binder";

    // The extended style goes before the style: an icon is looked for, and a button for bitmaps gets none.
    const HWND extended = Show<PDialogControlButton>(L"BUTTON", BS_BITMAP, BS_ICON, bitmap());
    EXPECT_EQ(SendMessageA(extended, BM_GETIMAGE, IMAGE_BITMAP, 0), 0);
}

TEST_F(DialogImages, ButtonsWithoutAnImageShowTheirText) {
    for (const DWORD style : {BS_PUSHBUTTON, BS_BITMAP}) {
        const HWND button = Show<PDialogControlButton>(L"BUTTON", style, 0, "no-such-image");
        char text[64] = "";
        GetWindowTextA(button, text, sizeof text);
        EXPECT_STREQ(text, "no-such-image") << style;
        EXPECT_EQ(SendMessageA(button, BM_GETIMAGE, IMAGE_BITMAP, 0), 0);
    }
}

TEST_F(DialogImages, StaticImagesGoByTheExtendedStyle) {
    const HWND bitmapControl = Show<PDialogControlStaticImage>(L"STATIC", SS_BITMAP, 0x04, bitmap());
    EXPECT_EQ(WidthOf(SendMessageA(bitmapControl, STM_GETIMAGE, IMAGE_BITMAP, 0)), 3);
    const HWND iconControl = Show<PDialogControlStaticImage>(L"STATIC", SS_ICON, 0x01, kIconResource);
    EXPECT_NE(SendMessageA(iconControl, STM_GETIMAGE, IMAGE_ICON, 0), 0);
    const HWND plain = Show<PDialogControlStaticImage>(L"STATIC", SS_BITMAP, 0, bitmap());
    EXPECT_EQ(SendMessageA(plain, STM_GETIMAGE, IMAGE_BITMAP, 0), 0) << "the style alone asks for nothing";

    const ImportPatch patch("LoadImageA", RecordType);
    for (const auto& [bits, type] : {std::pair{0x01, IMAGE_ICON},
                                     {0x02, IMAGE_ICON},
                                     {0x06, IMAGE_ICON},
                                     {0x04, IMAGE_BITMAP},
                                     {0x0C, IMAGE_BITMAP}}) {
        Show<PDialogControlStaticImage>(L"STATIC", SS_BITMAP, bits, bitmap());
        EXPECT_EQ(askedType, static_cast<UINT>(type)) << bits;
    }
}
