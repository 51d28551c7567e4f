// Required library; nothing in this module calls it.
// Binders of static texts, edit fields and date pickers.
#pragma once

#include "Util/PDialogControl.h"

class PDialogControlStaticText : public PDialogControl {
 public:
    PDialogControlStaticText(HWND window, ControlState state, const std::string& tooltip, const std::string& text);
    int ToDialog() override;

 private:
    std::string text_;
};

class PDialogControlTextEdit : public PDialogControl {
 public:
    // `buffer` has at least `maximumLength` + 1 characters, or is null.
    PDialogControlTextEdit(HWND window, ControlState state, const std::string& tooltip, char* buffer,
                           int maximumLength);
    int ToDialog() override;
    int FromDialog() override;

 private:
    char* buffer_;
    int maximumLength_;
};

class PDialogControlDate : public PDialogControl {
 public:
    // `buffer` of `size` characters has day, month and year, "5.3.2024"; any character separates them on input.
    PDialogControlDate(HWND window, ControlState state, const std::string& tooltip, char* buffer, int size);
    int ToDialog() override;
    int FromDialog() override;

 private:
    char* buffer_;
    int size_;
};
