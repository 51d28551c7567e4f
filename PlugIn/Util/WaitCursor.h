// Shows a system cursor for the duration of a scope. Hide and the destructor restore the previous cursor. Show does
// nothing when the cursor cannot be loaded. Main thread only.
#pragma once

#include <windows.h>

#include "Lib/Handles.h"

namespace KLUtils {

class WaitCursor {
 public:
    // The default is IDC_WAIT, which is a wide name where UNICODE is defined.
    explicit WaitCursor(const char* cursorName = MAKEINTRESOURCEA(32514), bool show = true);
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
    ~WaitCursor();

    void Show();
    void Hide();

 private:
    Owner<HCURSOR, DestroyCursor> cursor_;
    HCURSOR replaced_ = nullptr;
    bool active_ = false;
};

}  // namespace KLUtils
