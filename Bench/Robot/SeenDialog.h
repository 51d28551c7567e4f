// The contents of a dialog window or message box just before the robot answered it. Window handles in it are for
// comparison only; the windows may no longer exist.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace bench {

enum class BoxIcon { kNone, kError, kWarning, kQuestion, kInformation, kOther };

struct SeenButton {
    int id;
    std::string text;  // without the ampersand
};

struct SeenEdit {
    int id;
    std::string text;
    size_t limit;  // maximum number of characters; the system default is 30000 or more
};

struct SeenDialog {
    HWND window = nullptr;
    std::string caption;
    std::string text;  // of all static controls in order, joined by line breaks
    BoxIcon icon = BoxIcon::kNone;
    std::vector<SeenButton> buttons;  // push buttons in order
    std::vector<SeenEdit> edits;
    HICON smallIcon = nullptr;  // from WM_GETICON
    HICON largeIcon = nullptr;
    int focusId = 0;  // control with the keyboard focus; 0 if none in this dialog
    HWND owner = nullptr;
    bool watchedEnabled = false;  // of the robot's watched window
    RECT rectangle{};
    RECT ownerRectangle{};

    // Returns the button texts in order, joined by blanks: "Yes No".
    std::string ButtonTexts() const;
    // Returns one line for a complaint: box "text", caption "…", buttons OK, error icon.
    std::string Describe() const;
};

}  // namespace bench
