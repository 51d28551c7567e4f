#include "PlanWindow.h"

#include <commctrl.h>
#include <windowsx.h>

#include <utility>

#include "FloorPlanDrawing.h"
#include "WindowPen.h"

namespace bench {

PlanWindow::PlanWindow(HWND window, std::function<void(const std::string&)> clicked)
    : window_(window), clicked_(std::move(clicked)) {
    SetWindowSubclass(window_, Procedure, 1, reinterpret_cast<DWORD_PTR>(this));
}

PlanWindow::~PlanWindow() {
    RemoveWindowSubclass(window_, Procedure, 1);
    InvalidateRect(window_, nullptr, TRUE);
}

void PlanWindow::Show(const FloorPlan& plan) {
    plan_ = plan;
    InvalidateRect(window_, nullptr, FALSE);
    UpdateWindow(window_);
}

LRESULT CALLBACK PlanWindow::Procedure(HWND window, UINT message, WPARAM word, LPARAM place, UINT_PTR,
                                       DWORD_PTR reference) {
    PlanWindow& self = *reinterpret_cast<PlanWindow*>(reference);
    if (message == WM_ERASEBKGND) return TRUE;
    if (message == WM_SIZE) InvalidateRect(window, nullptr, FALSE);
    if (message == WM_PAINT) {
        self.Paint();
        return 0;
    }
    if (message == WM_LBUTTONDOWN) {
        const double scale = self.Scale();
        self.clicked_(PartAt(self.plan_, {GET_X_LPARAM(place) / scale, GET_Y_LPARAM(place) / scale}));
        return 0;
    }
    return DefSubclassProc(window, message, word, place);
}

double PlanWindow::Scale() const {
    RECT area;
    GetClientRect(window_, &area);
    const PenPoint size = SizeOfDrawing(plan_);
    return std::max(std::min(area.right / size.x, area.bottom / size.y), 0.01);
}

void PlanWindow::Paint() {
    PAINTSTRUCT paint;
    const HDC target = BeginPaint(window_, &paint);
    RECT area;
    GetClientRect(window_, &area);
    if (library_ && area.right > 0 && area.bottom > 0) {
        Gdiplus::Bitmap picture(area.right, area.bottom, PixelFormat32bppRGB);
        {
            Gdiplus::Graphics graphics(&picture);
            graphics.Clear(Gdiplus::Color::White);
            graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
            const auto scale = static_cast<Gdiplus::REAL>(Scale());
            graphics.ScaleTransform(scale, scale);
            WindowPen pen(graphics);
            DrawFloorPlan(plan_, pen);
        }
        Gdiplus::Graphics(target).DrawImage(&picture, 0, 0);
    }
    EndPaint(window_, &paint);
}

}  // namespace bench
