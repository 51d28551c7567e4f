#include "Util/PDialogControlButtons.h"

PDialogControlButton::PDialogControlButton(HWND window, ControlState state, const std::string& tooltip,
                                           const std::string& textOrImage)
    : PDialogControl(window, state, tooltip), textOrImage_(textOrImage) {}

int PDialogControlButton::ToDialog() {
    PDialogControl::ToDialog();
    if (!LoadImageOfStyle()) SendText(textOrImage_.c_str());
    return 0;
}

// Returns null when the style has no image or the image cannot be loaded.
HANDLE PDialogControlButton::LoadImageOfStyle() {
    constexpr LONG_PTR kImageBits = BS_BITMAP | BS_ICON;
    LONG_PTR bits = GetWindowLongPtrA(window(), GWL_EXSTYLE) & kImageBits;
    if (!bits) bits = GetWindowLongPtrA(window(), GWL_STYLE) & kImageBits;
    if (!bits) return nullptr;
    const UINT type = bits & BS_BITMAP ? IMAGE_BITMAP : IMAGE_ICON;
    const HANDLE image = image_.Load(textOrImage_, type);
    Send(BM_SETIMAGE, type, reinterpret_cast<LPARAM>(image));
    return image;
}

int PDialogControlButton::FromDialog() {
    return 0;
}

PDialogControlCheckBox::PDialogControlCheckBox(HWND window, ControlState state, const std::string& tooltip,
                                               const std::string& textOrImage, bool* flag)
    : PDialogControlButton(window, state, tooltip, textOrImage), flag_(flag) {}

int PDialogControlCheckBox::ToDialog() {
    PDialogControlButton::ToDialog();
    if (!flag_) return -1;
    Send(BM_SETCHECK, *flag_ ? BST_CHECKED : BST_UNCHECKED, 0);
    return 0;
}

int PDialogControlCheckBox::FromDialog() {
    if (!flag_) return -1;
    *flag_ = Send(BM_GETCHECK, 0, 0) == BST_CHECKED;
    return 0;
}

PDialogControlRadioButton::PDialogControlRadioButton(HWND window, ControlState state, const std::string& tooltip,
                                                     const std::string& textOrImage, float* variable, float ownValue)
    : PDialogControlButton(window, state, tooltip, textOrImage), variable_(variable), ownValue_(ownValue) {}

int PDialogControlRadioButton::ToDialog() {
    PDialogControlButton::ToDialog();
    Send(BM_SETCHECK, variable_ && *variable_ == ownValue_ ? BST_CHECKED : BST_UNCHECKED, 0);
    return 0;
}

int PDialogControlRadioButton::FromDialog() {
    if (Send(BM_GETCHECK, 0, 0) == BST_CHECKED && variable_) *variable_ = ownValue_;
    return 0;
}

PDialogControlStaticImage::PDialogControlStaticImage(HWND window, ControlState state, const std::string& tooltip,
                                                     const std::string& image)
    : PDialogControl(window, state, tooltip), name_(image) {}

int PDialogControlStaticImage::ToDialog() {
    PDialogControl::ToDialog();
    // Reads the extended style on purpose, although these are bits of the style.
    const LONG_PTR bits = GetWindowLongPtrA(window(), GWL_EXSTYLE);
    if (!(bits & (SS_BITMAP | SS_ICON))) return 0;
    // SS_ICON and SS_BITMAP share a bit; the other bit of SS_ICON distinguishes them.
    const UINT type = bits & SS_ICON & ~SS_BITMAP ? IMAGE_ICON : IMAGE_BITMAP;
    Send(STM_SETIMAGE, type, reinterpret_cast<LPARAM>(image_.Load(name_, type)));
    return 0;
}

int PDialogControlStaticImage::FromDialog() {
    return 0;
}
