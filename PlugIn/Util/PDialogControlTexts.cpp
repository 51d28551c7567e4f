#include "Util/PDialogControlTexts.h"

#include <commctrl.h>

#include <cstdio>

PDialogControlStaticText::PDialogControlStaticText(HWND window, ControlState state, const std::string& tooltip,
                                                   const std::string& text)
    : PDialogControl(window, state, tooltip), text_(text) {}

int PDialogControlStaticText::ToDialog() {
    PDialogControl::ToDialog();
    if (!text_.empty()) SendText(text_.c_str());
    return 0;
}

PDialogControlTextEdit::PDialogControlTextEdit(HWND window, ControlState state, const std::string& tooltip,
                                               char* buffer, int maximumLength)
    : PDialogControl(window, state, tooltip), buffer_(buffer), maximumLength_(maximumLength) {}

int PDialogControlTextEdit::ToDialog() {
    PDialogControl::ToDialog();
    if (buffer_) SendText(buffer_);
    if (maximumLength_ >= 1) Send(EM_LIMITTEXT, static_cast<WPARAM>(maximumLength_), 0);
    return 0;
}

int PDialogControlTextEdit::FromDialog() {
    if (buffer_ && maximumLength_ >= 1)
        Send(WM_GETTEXT, static_cast<WPARAM>(maximumLength_) + 1, reinterpret_cast<LPARAM>(buffer_));
    return 0;
}

PDialogControlDate::PDialogControlDate(HWND window, ControlState state, const std::string& tooltip, char* buffer,
                                       int size)
    : PDialogControl(window, state, tooltip), buffer_(buffer), size_(size) {}

int PDialogControlDate::ToDialog() {
    PDialogControl::ToDialog();
    if (!buffer_ || !*buffer_) return 0;
    int day = 0;
    int month = 0;
    int year = 0;
    std::sscanf(buffer_, "%d%*c%d%*c%d", &day, &month, &year);
    SYSTEMTIME date = {};
    date.wDay = static_cast<WORD>(day);
    date.wMonth = static_cast<WORD>(month);
    date.wYear = static_cast<WORD>(year);
    Send(DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&date));
    return 0;
}

int PDialogControlDate::FromDialog() {
    if (!buffer_ || size_ < 1) return 0;
    SYSTEMTIME date = {};
    if (Send(DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&date)) != GDT_VALID) return 0;
    std::snprintf(buffer_, static_cast<size_t>(size_), "%d.%d.%d", date.wDay, date.wMonth, date.wYear);
    return 0;
}
