// Base of dialogs that bind their controls to variables. A derived dialog passes every message of its procedure to
// HandleMessage; on WM_INITDIALOG it calls SetHandle before that, and AddControl and ToDialog(-1) after it; its
// Validate calls FromDialog(-1) and checks the values. The dialog owns its binders, its tooltip window and its brush.
// Results are 0, or -1 after a report. Main thread only.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "Lib/Handles.h"
#include "Util/PDialogControl.h"

class PDialog {
 public:
    PDialog();
    PDialog(const PDialog&) = delete;
    PDialog& operator=(const PDialog&) = delete;

    // The order of the virtual operations is fixed.
    virtual ~PDialog();
    // What the dialog procedure returns; 0 leaves the message to the system.
    virtual INT_PTR HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);
    // Writes the variables of all controls, or of the one with this identifier when it is not negative.
    virtual int ToDialog(int identifier);
    virtual int FromDialog(int identifier);
    // What the derived dialog is for; this base does not call it.
    virtual int Execute() = 0;
    // Called with (1, 1, 1, 0) when OK is pressed; 0 lets the dialog close.
    virtual int Validate(int, int, int, int) = 0;

    int SetHandle(HWND dialogWindow);
    // Adds a binder behind the others; one with a tooltip gets it at once, so the tooltip window should be there.
    int AddControl(std::unique_ptr<PDialogControl> control);

    // The answer to the WM_CTLCOLOR messages: sets colours and a transparent background on the device context and gives
    // the background's brush, which stays ours. CLR_INVALID stands for the system's colour of buttons.
    HBRUSH CtlColor(HDC device, COLORREF textColour, COLORREF backgroundColour);

    // The window of the dialog's control with this identifier; null when there is none.
    HWND GetControl(int identifier) const;
    bool HasControl(int identifier) const;

 protected:
    HWND dialogWindow() const { return dialogWindow_; }
    HWND tooltipWindow() const { return tooltipWindow_.get(); }
    // The caption that ToDialog sets; empty leaves it alone.
    void SetTitle(const std::string& title) { title_ = title; }

 private:
    void CreateTooltipWindow();
    void GiveTooltip(NMHDR* notification) const;
    INT_PTR OnCommand(WORD identifier, WORD code, HWND control);
    PDialogControl* BinderOf(int identifier) const;

    // In the reverse of the order in which they end: controls, brush, tooltip window.
    Owner<HWND, DestroyWindow> tooltipWindow_;
    Owner<HBRUSH, DeleteObject> brush_;
    COLORREF brushColour_ = CLR_INVALID;
    std::vector<std::unique_ptr<PDialogControl>> controls_;
    HWND dialogWindow_ = nullptr;
    std::string title_;
};
