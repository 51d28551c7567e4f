#include "DialogFixture.h"

#include <commctrl.h>

DialogTemplate::DialogTemplate(const std::wstring& caption, WORD width, WORD height) {
    const INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_DATE_CLASSES | ICC_WIN95_CLASSES};
    InitCommonControlsEx(&classes);
    Put(WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_SETFONT);
    Put(0);
    for (const WORD value : {WORD{0}, WORD{20}, WORD{20}, width, height, WORD{0}, WORD{0}})
        words_.push_back(value);
    PutText(caption);
    words_.push_back(8);
    PutText(L"MS Shell Dlg");
}

DialogTemplate& DialogTemplate::Add(const wchar_t* className, DWORD style, WORD id, const wchar_t* text, WORD row,
                                    WORD rows, DWORD extendedStyle, WORD x, WORD width) {
    ++words_[4];
    if (words_.size() % 2) words_.push_back(0);
    Put(style | WS_CHILD | WS_VISIBLE);
    Put(extendedStyle);
    for (const WORD value : {x, static_cast<WORD>(4 + 16 * row), width, static_cast<WORD>(16 * rows - 2), id})
        words_.push_back(value);
    PutText(className);
    PutText(text);
    words_.push_back(0);
    return *this;
}

void DialogTemplate::Put(DWORD value) {
    words_.push_back(LOWORD(value));
    words_.push_back(HIWORD(value));
}

void DialogTemplate::PutText(const std::wstring& text) {
    words_.insert(words_.end(), text.begin(), text.end());
    words_.push_back(0);
}

BoundDialog::BoundDialog(std::function<void(BoundDialog&)> bind) : bind_(std::move(bind)) {}

BoundDialog::~BoundDialog() {
    if (modeless_) DestroyWindow(modeless_);
}

void BoundDialog::Open(const DialogTemplate& layout) {
    modeless_ = CreateDialogIndirectParamA(nullptr, layout.get(), nullptr, Procedure, reinterpret_cast<LPARAM>(this));
}

INT_PTR BoundDialog::Run(const DialogTemplate& layout) {
    return DialogBoxIndirectParamA(nullptr, layout.get(), nullptr, Procedure, reinterpret_cast<LPARAM>(this));
}

int BoundDialog::Validate(int first, int second, int third, int fourth) {
    validations.push_back(std::to_string(first) + " " + std::to_string(second) + " " + std::to_string(third) + " " +
                          std::to_string(fourth));
    FromDialog(-1);
    return validations.size() <= verdicts.size() ? verdicts[validations.size() - 1] : 0;
}

INT_PTR CALLBACK BoundDialog::Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) SetWindowLongPtrA(dialog, DWLP_USER, lParam);
    auto* self = reinterpret_cast<BoundDialog*>(GetWindowLongPtrA(dialog, DWLP_USER));
    if (!self) return FALSE;
    if (message == WM_INITDIALOG) {
        self->SetHandle(dialog);
        self->HandleMessage(message, wParam, lParam);
        self->bind_(*self);
        self->ToDialog(-1);
        return TRUE;
    }
    return self->HandleMessage(message, wParam, lParam);
}
