// A dialog on PDialog with the children that a case names and binds. It is modeless and hidden, because showing a
// window takes seconds without a window manager. The destructor destroys it.
#pragma once

#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Util/PDialog.h"

struct Child {
    const char* className;
    DWORD style;
    int id;
    const char* text = "";
};

class BoundDialog : public PDialog {
 public:
    BoundDialog() {
        const INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_DATE_CLASSES};
        InitCommonControlsEx(&classes);
    }
    ~BoundDialog() override {
        if (dialogWindow()) DestroyWindow(dialogWindow());
    }

    // `bind` runs on WM_INITDIALOG, before the first ToDialog.
    void Open(const std::vector<Child>& children, std::function<void()> bind) {
        const struct {
            DLGTEMPLATE head;
            WORD menu, windowClass;
            wchar_t caption[6];
        } empty = {{WS_POPUP | WS_CAPTION, 0, 0, 0, 0, 90, 90}, 0, 0, L"Bound"};
        children_ = children;
        bind_ = std::move(bind);
        CreateDialogIndirectParamA(nullptr, &empty.head, nullptr, Procedure, reinterpret_cast<LPARAM>(this));
    }
    template <class Binder, class... Arguments>
    PDialogControl& Bind(int id, Arguments&&... arguments) {
        return BindAs<Binder>(id, kControlNormal, "", std::forward<Arguments>(arguments)...);
    }
    template <class Binder, class... Arguments>
    PDialogControl& BindAs(int id, ControlState state, const std::string& tooltip, Arguments&&... arguments) {
        auto binder = std::make_unique<Binder>(GetControl(id), state, tooltip, std::forward<Arguments>(arguments)...);
        PDialogControl& bound = *binder;
        EXPECT_EQ(AddControl(std::move(binder)), 0);
        EXPECT_EQ(bound.owner(), this);
        return bound;
    }
    LRESULT Send(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageA(GetControl(id), message, wParam, lParam);
    }
    std::string TextOf(int id) const {
        char text[64] = "";
        GetWindowTextA(GetControl(id), text, sizeof text);
        return text;
    }

    using PDialog::dialogWindow;
    using PDialog::SetTitle;
    using PDialog::tooltipWindow;

    int Execute() override { return 0; }
    int Validate(int first, int second, int third, int fourth) override {
        EXPECT_EQ((std::vector<int>{first, second, third, fourth}), (std::vector<int>{1, 1, 1, 0}));
        ++validations;
        return verdict;
    }
    int validations = 0;
    int verdict = 0;

 private:
    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message != WM_INITDIALOG) return FALSE;
        auto* self = reinterpret_cast<BoundDialog*>(lParam);
        int y = 0;
        for (const Child& child : self->children_)
            CreateWindowExA(0, child.className, child.text, WS_CHILD | WS_VISIBLE | child.style, 0, y += 25, 200, 20,
                            dialog, reinterpret_cast<HMENU>(static_cast<INT_PTR>(child.id)), nullptr, nullptr);
        EXPECT_EQ(self->SetHandle(dialog), 0);
        EXPECT_EQ(self->HandleMessage(message, wParam, lParam), 0);
        self->bind_();
        EXPECT_EQ(self->ToDialog(-1), 0);
        return TRUE;
    }

    std::vector<Child> children_;
    std::function<void()> bind_;
};
