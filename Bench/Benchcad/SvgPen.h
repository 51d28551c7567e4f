// Writes a drawing as an SVG file.
#pragma once

#include <set>

#include "Pen.h"

namespace bench {

class SvgPen : public Pen {
 public:
    void Line(PenPoint from, PenPoint to, const Style& style) override;
    void Polygon(const std::vector<PenPoint>& corners, const Style& style) override;
    void Bend(PenPoint from, PenPoint corner, PenPoint to, const Style& style) override;
    void Circle(PenPoint centre, double radius, const Style& style) override;
    void Text(PenPoint place, const std::string& text, const Letters& letters) override;

    // Returns the whole file.
    std::string Document(double width, double height) const;

 private:
    std::string Attributes(const Style& style);

    std::set<int> hatches_;  // their colours
    std::string body_;
};

}  // namespace bench
