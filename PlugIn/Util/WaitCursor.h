// A system cursor shown for the length of a scope; the cursor that it replaced comes back when it is hidden or ends.
// When the cursor cannot be loaded, showing does nothing. Main thread only.
#pragma once

#include <windows.h>

#include "Lib/Handles.h"

namespace KLUtils {

class WaitCursor {
 public:
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
