#include "Util/PDialogControl.h"

PDialogControl::PDialogControl(HWND window, ControlState state, const std::string& tooltip)
    : window_(window), state_(state), tooltip_(tooltip) {}

PDialogControl::~PDialogControl() = default;

int PDialogControl::ToDialog() {
    Send(EM_SETREADONLY, state_ == kControlReadOnly, 0);
    EnableWindow(window_, state_ != kControlDisabled);
    ShowWindow(window_, state_ == kControlHidden ? SW_HIDE : SW_SHOW);
    return 0;
}

int PDialogControl::FromDialog() {
    return 0;
}

INT_PTR PDialogControl::HandleMessage(UINT, WPARAM, LPARAM) {
    return 0;
}
