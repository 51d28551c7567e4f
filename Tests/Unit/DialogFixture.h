// Vocabulary of the dialog tests: a dialog template built in memory, and a dialog on PDialog whose controls a case
// binds. Dialogs are opened on the test's own thread; modal ones are answered by the robot.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Util/PDialog.h"

class DialogTemplate {
 public:
    explicit DialogTemplate(const std::wstring& caption, WORD width = 160, WORD height = 150);
    // Adds a visible child; the place is one row of 14 units, rows counted from 0.
    DialogTemplate& Add(const wchar_t* className, DWORD style, WORD id, const wchar_t* text, WORD row, WORD rows = 1,
                        DWORD extendedStyle = 0, WORD x = 5, WORD width = 150);
    const DLGTEMPLATE* get() const { return reinterpret_cast<const DLGTEMPLATE*>(words_.data()); }

 private:
    void Put(DWORD value);
    void PutText(const std::wstring& text);

    std::vector<WORD> words_;
};

class BoundDialog : public PDialog {
 public:
    // `bind` runs on WM_INITDIALOG, before the first ToDialog.
    explicit BoundDialog(std::function<void(BoundDialog&)> bind);
    ~BoundDialog() override;

    // Modeless and hidden, for showing a window costs seconds without a window manager; lives until the test's end.
    void Open(const DialogTemplate& layout);
    INT_PTR Run(const DialogTemplate& layout);
    using PDialog::SetTitle;
    using PDialog::tooltipWindow;

    template <class Binder, class... Arguments>
    Binder& Bind(int id, ControlState state, const std::string& tooltip, Arguments&&... arguments) {
        auto binder = std::make_unique<Binder>(GetControl(id), state, tooltip, std::forward<Arguments>(arguments)...);
        Binder& bound = *binder;
        AddControl(std::move(binder));
        return bound;
    }

    int Execute() override { return 0; }
    int Validate(int first, int second, int third, int fourth) override;

    std::vector<std::string> validations;  // the arguments of each call: "1 1 1 0"
    std::vector<int> verdicts;             // answers of Validate, in order; 0 when used up

 private:
    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

    std::function<void(BoundDialog&)> bind_;
    HWND modeless_ = nullptr;
};
