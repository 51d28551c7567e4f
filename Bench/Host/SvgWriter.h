// Elements of an SVG drawing, appended to one text. Coordinates are pixels, y down; texts may hold any UTF-8 and are
// escaped here. Styles are SVG attributes, written by the caller ("fill='#fff' stroke='#000'").
#pragma once

#include <string>
#include <vector>

namespace bench {

struct SvgPoint {
    double x = 0;
    double y = 0;
};

class SvgWriter {
 public:
    SvgWriter(double width, double height);

    void Definition(const std::string& element);
    void Rectangle(SvgPoint corner, double width, double height, const std::string& style);
    void Line(SvgPoint from, SvgPoint to, const std::string& style);
    void Polygon(const std::vector<SvgPoint>& corners, const std::string& style);
    // A bend from `from` to `to` whose legs point at `corner`.
    void Bend(SvgPoint from, SvgPoint corner, SvgPoint to, const std::string& style);
    void Circle(SvgPoint centre, double radius, const std::string& style);
    // `degrees` turns clockwise about the place.
    void Text(SvgPoint place, const std::string& text, const std::string& style, double degrees = 0);

    // The whole file.
    std::string Document() const;

 private:
    const double width_;
    const double height_;
    std::string definitions_;
    std::string body_;
};

}  // namespace bench
