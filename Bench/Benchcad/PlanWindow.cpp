#include "PlanWindow.h"

#include <commctrl.h>
#include <windowsx.h>

#include <utility>

#include "BenchTexts.h"
#include "FloorPlanDrawing.h"
#include "Pen.h"

namespace bench {
namespace {

Gdiplus::Color Colour(int colour) {
    return Gdiplus::Color(0xFF000000u | static_cast<Gdiplus::ARGB>(colour));
}

Gdiplus::PointF At(PenPoint point) {
    return {static_cast<Gdiplus::REAL>(point.x), static_cast<Gdiplus::REAL>(point.y)};
}

// Borrows `graphics` and keeps its scale.
class WindowPen : public Pen {
 public:
    explicit WindowPen(Gdiplus::Graphics& graphics) : graphics_(graphics) {}

    void Line(PenPoint from, PenPoint to, const Style& style) override;
    void Polygon(const std::vector<PenPoint>& corners, const Style& style) override;
    void Bend(PenPoint from, PenPoint corner, PenPoint to, const Style& style) override;
    void Circle(PenPoint centre, double radius, const Style& style) override;
    void Text(PenPoint place, const std::string& text, const Letters& letters) override;

 private:
    void Draw(const Gdiplus::GraphicsPath& path, const Style& style);

    Gdiplus::Graphics& graphics_;
};

void WindowPen::Draw(const Gdiplus::GraphicsPath& path, const Style& style) {
    if (style.kind == Style::kHatched) {
        const Gdiplus::HatchBrush brush(Gdiplus::HatchStyleWideUpwardDiagonal, Colour(style.stroke), Colour(0xFFFFFF));
        graphics_.FillPath(&brush, &path);
    } else if (style.fill != kNoColour) {
        const Gdiplus::SolidBrush brush(Colour(style.fill));
        graphics_.FillPath(&brush, &path);
    }
    if (style.stroke == kNoColour) return;
    Gdiplus::Pen pen(Colour(style.stroke), static_cast<Gdiplus::REAL>(style.width));
    if (style.kind == Style::kDashed) pen.SetDashStyle(Gdiplus::DashStyleDash);
    if (style.kind == Style::kRoundEnds)
        pen.SetLineCap(Gdiplus::LineCapRound, Gdiplus::LineCapRound, Gdiplus::DashCapFlat);
    graphics_.DrawPath(&pen, &path);
}

void WindowPen::Line(PenPoint from, PenPoint to, const Style& style) {
    Gdiplus::GraphicsPath path;
    path.AddLine(At(from), At(to));
    Draw(path, style);
}

void WindowPen::Polygon(const std::vector<PenPoint>& corners, const Style& style) {
    std::vector<Gdiplus::PointF> points;
    for (const PenPoint& corner : corners)
        points.push_back(At(corner));
    Gdiplus::GraphicsPath path;
    path.AddPolygon(points.data(), static_cast<INT>(points.size()));
    Draw(path, style);
}

// Converts the quadratic curve to a cubic one: its control points are two thirds of the way to the corner.
void WindowPen::Bend(PenPoint from, PenPoint corner, PenPoint to, const Style& style) {
    const auto towards = [&](PenPoint end) {
        return At({end.x + (corner.x - end.x) * 2 / 3, end.y + (corner.y - end.y) * 2 / 3});
    };
    Gdiplus::GraphicsPath path;
    path.AddBezier(At(from), towards(from), towards(to), At(to));
    Draw(path, style);
}

void WindowPen::Circle(PenPoint centre, double radius, const Style& style) {
    const Gdiplus::PointF corner = At({centre.x - radius, centre.y - radius});
    const auto size = static_cast<Gdiplus::REAL>(2 * radius);
    Gdiplus::GraphicsPath path;
    path.AddEllipse(corner.X, corner.Y, size, size);
    Draw(path, style);
}

void WindowPen::Text(PenPoint place, const std::string& text, const Letters& letters) {
    const Gdiplus::FontFamily* const family = Gdiplus::FontFamily::GenericSansSerif();
    const INT style = letters.bold ? Gdiplus::FontStyleBold : Gdiplus::FontStyleRegular;
    const auto size = static_cast<Gdiplus::REAL>(letters.size);
    const Gdiplus::Font font(family, size, style, Gdiplus::UnitPixel);
    Gdiplus::StringFormat format(Gdiplus::StringFormat::GenericTypographic());
    if (letters.centred) format.SetAlignment(Gdiplus::StringAlignmentCenter);
    const Gdiplus::SolidBrush brush(Colour(letters.colour));
    const Gdiplus::REAL aboveBaseLine = size * family->GetCellAscent(style) / family->GetEmHeight(style);
    const Gdiplus::GraphicsState before = graphics_.Save();
    graphics_.TranslateTransform(At(place).X, At(place).Y);
    graphics_.RotateTransform(static_cast<Gdiplus::REAL>(letters.degrees));
    graphics_.DrawString(FromUtf8(text).c_str(), -1, &font, {0, -aboveBaseLine}, &format, &brush);
    graphics_.Restore(before);
}

}  // namespace

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
