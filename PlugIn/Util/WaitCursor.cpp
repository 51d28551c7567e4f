#include "Util/WaitCursor.h"

namespace KLUtils {

WaitCursor::WaitCursor(const char* cursorName, bool show) : cursor_(LoadCursorA(nullptr, cursorName)) {
    if (show) Show();
}

WaitCursor::~WaitCursor() {
    Hide();
}

void WaitCursor::Show() {
    if (!cursor_ || active_) return;
    replaced_ = SetCursor(cursor_.get());
    active_ = true;
}

void WaitCursor::Hide() {
    if (!active_) return;
    SetCursor(replaced_);
    active_ = false;
}

}  // namespace KLUtils
