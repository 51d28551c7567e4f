// What the robot saw of a dialog window or message box, at the moment before it answered. A value without handles that
// must be given back; window handles in it serve comparison only, the windows may be gone.
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
    size_t limit;  // most characters that can be typed; the system's own limit is 30000 or more
};

struct SeenDialog {
    HWND window = nullptr;
    std::string caption;
    std::string text;  // of the static texts, in their order, joined by line breaks
    BoxIcon icon = BoxIcon::kNone;
    std::vector<SeenButton> buttons;  // push buttons, in their order
    std::vector<SeenEdit> edits;
    HICON smallIcon = nullptr;  // as the window answers WM_GETICON
    HICON largeIcon = nullptr;
    int focusId = 0;  // control with the keyboard focus, 0 when none of this dialog has it
    HWND owner = nullptr;
    bool watchedEnabled = false;  // the window that the robot was told to watch
    RECT rectangle{};
    RECT ownerRectangle{};

    // Texts of the buttons, in their order, joined by blanks: "Yes No".
    std::string ButtonTexts() const;
    // One line for a complaint: box "text", caption "…", buttons OK, error icon.
    std::string Describe() const;
};

}  // namespace bench
