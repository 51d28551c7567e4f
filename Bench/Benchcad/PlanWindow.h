// Shows the floor plan in AutoCAD's main window. AutoCAD owns the window; while this object exists, it paints there and
// receives mouse clicks.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "FloorPlan.h"
#include "GdiPlus.h"

namespace bench {

class PlanWindow {
 public:
    // `clicked` receives the handle of the part under the mouse, or an empty string.
    PlanWindow(HWND window, std::function<void(const std::string& handle)> clicked);
    ~PlanWindow();
    PlanWindow(const PlanWindow&) = delete;
    PlanWindow& operator=(const PlanWindow&) = delete;

    void Show(const FloorPlan& plan);

 private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM word, LPARAM place, UINT_PTR,
                                      DWORD_PTR reference);
    void Paint();
    // Returns window pixels per drawing pixel.
    double Scale() const;

    const GdiPlus library_;
    const HWND window_;
    const std::function<void(const std::string&)> clicked_;
    FloorPlan plan_;
};

}  // namespace bench
