// Draws on a window.
#pragma once

#include "GdiPlus.h"
#include "Pen.h"

namespace bench {

class WindowPen : public Pen {
 public:
    // Borrows `graphics` and keeps its scale.
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

}  // namespace bench
