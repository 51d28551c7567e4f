// Binders between a dialog's controls and the program's variables. A binder holds a control's window and writes its
// variable into it (ToDialog) or reads it back (FromDialog); the variable belongs to the program and must outlive the
// binder. Results are 0, or -1 when a binder lacks what it needs. This is the base; the binders stand in
// PDialogControlTexts.h, PDialogControlLists.h and PDialogControlButtons.h. A dialog (PDialog) owns its binders.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

class PDialog;

// Any value of 0 or above is normal.
using ControlState = int32_t;
inline constexpr ControlState kControlNormal = 0;
inline constexpr ControlState kControlReadOnly = -1;
inline constexpr ControlState kControlDisabled = -2;
inline constexpr ControlState kControlHidden = -3;

class PDialogControl {
 public:
    PDialogControl(HWND window, ControlState state, const std::string& tooltip);
    PDialogControl(const PDialogControl&) = delete;
    PDialogControl& operator=(const PDialogControl&) = delete;

    // The order of the virtual operations is fixed.
    virtual ~PDialogControl();
    // Shows the state; every binder calls it before its own work.
    virtual int ToDialog();
    virtual int FromDialog();
    // Sees every message of the dialog first; a result other than 0 ends its way.
    virtual INT_PTR HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);

    HWND window() const { return window_; }
    int identifier() const { return GetDlgCtrlID(window_); }
    PDialog* owner() const { return owner_; }
    const std::string& tooltip() const { return tooltip_; }

 protected:
    LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam) const {
        return SendMessageA(window_, message, wParam, lParam);
    }
    void SendText(const char* text) const { Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)); }

 private:
    friend class PDialog;

    HWND window_;
    PDialog* owner_ = nullptr;
    ControlState state_;
    std::string tooltip_;
};
