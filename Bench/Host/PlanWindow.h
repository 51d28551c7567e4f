// The floor plan in AutoCAD's main window, for the person in front of it. The window stays AutoCAD's own; while this
// object lives, it paints there and hears the mouse.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "FloorPlan.h"
#include "GdiPlus.h"
#include "Pen.h"

namespace bench {

class PlanWindow {
 public:
    // `clicked` gets the handle of the part under the mouse, or an empty text.
    PlanWindow(HWND window, std::function<void(const std::string& handle)> clicked);
    ~PlanWindow();
    PlanWindow(const PlanWindow&) = delete;
    PlanWindow& operator=(const PlanWindow&) = delete;

    void Show(const FloorPlan& plan);

 private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM word, LPARAM place, UINT_PTR,
                                      DWORD_PTR reference);
    void Paint();
    // Pixels of the window for one of the drawing.
    double Scale() const;

    const GdiPlus library_;
    const HWND window_;
    const std::function<void(const std::string&)> clicked_;
    FloorPlan plan_;
};

}  // namespace bench
