#include "DialogFixture.h"
#include "ModuleNames.h"
#include "RecordedCalls.h"
#include "TestFiles.h"
#include "Util/PDialogControlButtons.h"

namespace {

constexpr int kControl = 1200;

// A control with this binder; the extended style replaces what the dialog gave it.
template <class Binder>
std::unique_ptr<BoundDialog> Show(const char* className, DWORD style, LONG extendedStyle, const std::string& name) {
    auto dialog = std::make_unique<BoundDialog>();
    dialog->Open({{className, style, kControl}}, [&] {
        SetWindowLongA(dialog->GetControl(kControl), GWL_EXSTYLE, extendedStyle);
        dialog->Bind<Binder>(kControl, name);
    });
    return dialog;
}

}  // namespace

TEST(DialogImages, TheStyleSaysWhichImageIsLoadedFromWhere) {
    const TestFolder folder;
    const std::string file = folder.file("duct.bmp");
    WriteWholeFile(file, "");
    const std::string fromFile = "null \"" + file + "\" ", fromModule = "module \"#115\" ";
    const struct {
        bool isButton;
        DWORD style;
        LONG extended;
        std::string name, load;  // arguments of LoadImageA; none when no image is asked for
        int type;
    } cases[] = {
        {true, BS_BITMAP, 0, file, fromFile + "0x0 0 0 0x1010", IMAGE_BITMAP},
        {true, BS_ICON, 0, "#115", fromModule + "0x1 0 0 0x1000", IMAGE_ICON},
        // The extended style goes before the style; bitmap goes before icon.
        {true, BS_BITMAP, BS_ICON, file, fromFile + "0x1 0 0 0x1010", IMAGE_ICON},
        {true, BS_PUSHBUTTON, BS_ICON | BS_BITMAP, file, fromFile + "0x0 0 0 0x1010", IMAGE_BITMAP},
        // A folder of the image's name is no file of it.
        {true, BS_ICON, 0, folder.path(), "module \"" + folder.path() + "\" 0x1 0 0 0x1000", IMAGE_ICON},
        {false, SS_BITMAP, 0, file, "", 0},
        {false, SS_BITMAP, 0x01, file, fromFile + "0x1 0 0 0x1010", IMAGE_ICON},
        {false, SS_BITMAP, 0x03, "#115", fromModule + "0x1 0 0 0x1000", IMAGE_ICON},
        {false, SS_ICON, 0x02, file, fromFile + "0x0 0 0 0x1010", IMAGE_BITMAP},
        {false, SS_ICON, 0x04, file, fromFile + "0x0 0 0 0x1010", IMAGE_BITMAP},
        {false, SS_ICON, 0x0E, file, fromFile + "0x0 0 0 0x1010", IMAGE_BITMAP},
    };
    for (const auto& c : cases) {
        RecordedCalls calls;
        calls.Name(GetModuleHandleA(kModuleFileName), "module");
        calls.Give("LoadImageA", LoadImageA, reinterpret_cast<HANDLE>(0x51));
        calls.Give("SendMessageA", SendMessageA, 0);
        calls.Give("DeleteObject", DeleteObject, TRUE);
        calls.Give("DestroyIcon", DestroyIcon, TRUE);
        auto dialog = c.isButton ? Show<PDialogControlButton>("BUTTON", c.style, c.extended, c.name)
                                 : Show<PDialogControlStaticImage>("STATIC", c.style, c.extended, c.name);
        const std::string state = "SendMessageA & 0xCF 0x0 0\n";  // EM_SETREADONLY
        const std::string load = "LoadImageA " + c.load + "\nSendMessageA & " + (c.isButton ? "0xF7 " : "0x172 ") +
                                 (c.type == IMAGE_ICON ? "0x1" : "0x0") + " 81\n";
        const std::string erase = c.type == IMAGE_ICON ? "DestroyIcon LoadImageA\n" : "DeleteObject LoadImageA\n";
        EXPECT_EQ(calls.Take(), c.load.empty() ? state : state + load) << c.extended;
        dialog->ToDialog(-1);
        EXPECT_EQ(calls.Take(), c.load.empty() ? state : state + erase + load) << "the image before is deleted";
        dialog.reset();
        EXPECT_EQ(calls.Take(), c.load.empty() ? "" : erase);
    }
}

TEST(DialogImages, ButtonsWithoutAnImageShowTheirText) {
    for (const DWORD style : {BS_PUSHBUTTON, BS_BITMAP})
        EXPECT_EQ(Show<PDialogControlButton>("BUTTON", style, 0, "no-such-image")->TextOf(kControl), "no-such-image");
    const auto icon = Show<PDialogControlButton>("BUTTON", BS_ICON, 0, "#115");
    EXPECT_NE(icon->Send(kControl, BM_GETIMAGE, IMAGE_ICON), 0) << "the module has the icon";
}
