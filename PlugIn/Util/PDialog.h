// Required library; nothing in this module calls it.
// Base class of dialogs that bind their controls to variables. A derived dialog passes every message of its procedure
// to HandleMessage. On WM_INITDIALOG it calls SetHandle before that, AddControl and ToDialog(-1) after it. Its Validate
// calls FromDialog(-1) and checks the values. The dialog owns its binders, tooltip window and brush. int results are 0,
// or -1 after a report. Main thread only.
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
    // Returns the result for the dialog procedure; 0 lets the system handle the message.
    virtual INT_PTR HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);
    // Write to or read from the control with this identifier, or all controls when it is negative.
    virtual int ToDialog(int identifier);
    virtual int FromDialog(int identifier);
    // Runs the derived dialog. The base class does not call it.
    virtual int Execute() = 0;
    // Called with (1, 1, 1, 0) when the user presses OK. Returns 0 to close the dialog.
    virtual int Validate(int, int, int, int) = 0;

    int SetHandle(HWND dialogWindow);
    // Appends a binder and registers its tooltip, for which the tooltip window must exist.
    int AddControl(std::unique_ptr<PDialogControl> control);

    // Handles WM_CTLCOLOR messages: sets the colours and a transparent background on the device context. Returns the
    // background brush, which the dialog owns. CLR_INVALID means the system's button colour.
    HBRUSH CtlColor(HDC device, COLORREF textColour, COLORREF backgroundColour);

    // Returns the window of the control with this identifier, or null.
    HWND GetControl(int identifier) const;
    bool HasControl(int identifier) const;

 protected:
    HWND dialogWindow() const { return dialogWindow_; }
    HWND tooltipWindow() const { return tooltipWindow_.get(); }
    // Sets the caption that ToDialog shows; an empty one leaves the caption unchanged.
    void SetTitle(const std::string& title) { title_ = title; }

 private:
    void CreateTooltipWindow();
    void SetTooltipText(NMHDR* notification) const;
    INT_PTR OnCommand(WORD identifier, WORD code, HWND control);
    PDialogControl* FindBinder(int identifier) const;

    // Destroyed last to first: controls, brush, tooltip window.
    Owner<HWND, DestroyWindow> tooltipWindow_;
    Owner<HBRUSH, DeleteObject> brush_;
    COLORREF brushColour_ = CLR_INVALID;
    std::vector<std::unique_ptr<PDialogControl>> controls_;
    HWND dialogWindow_ = nullptr;
    std::string title_;
};
