// Starts and stops GDI+. Its header needs min and max without qualification.
#pragma once

#include <windows.h>
#include <objidl.h>

#include <algorithm>

using std::max;
using std::min;
#include <gdiplus.h>

namespace bench {

class GdiPlus {
 public:
    GdiPlus() {
        const Gdiplus::GdiplusStartupInput input;
        started_ = Gdiplus::GdiplusStartup(&token_, &input, nullptr) == Gdiplus::Ok;
    }
    ~GdiPlus() {
        if (started_) Gdiplus::GdiplusShutdown(token_);
    }
    GdiPlus(const GdiPlus&) = delete;
    GdiPlus& operator=(const GdiPlus&) = delete;
    explicit operator bool() const { return started_; }

 private:
    ULONG_PTR token_ = 0;
    bool started_ = false;
};

}  // namespace bench
