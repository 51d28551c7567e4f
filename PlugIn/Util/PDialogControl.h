// Required library; nothing in this module calls it.
// Base class of binders between a dialog's controls and the program's variables. A binder writes its variable to the
// control (ToDialog) and reads it back (FromDialog). The variable must outlive the binder. Results are 0, or -1 when
// the binder has no variable or list. The binders are in PDialogControlTexts.h, PDialogControlLists.h and
// PDialogControlButtons.h; a PDialog owns them.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

class PDialog;

// Values from 0 on mean normal.
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
    // Applies the state to the control. Every binder calls it first.
    virtual int ToDialog();
    virtual int FromDialog();
    // Receives every message of the dialog first. A nonzero result ends its handling.
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
