// Interface for drawing into an SVG file or a window. Coordinates are pixels, y down; strings are UTF-8; colours are
// 0xRRGGBB.
#pragma once

#include <string>
#include <vector>

namespace bench {

struct PenPoint {
    double x = 0;
    double y = 0;
};

inline constexpr int kNoColour = -1;

struct Style {
    int fill = kNoColour;
    int stroke = kNoColour;
    double width = 1;  // of the stroke
    enum Kind {
        kPlain,
        kDashed,
        kRoundEnds,
        kHatched
    } kind = kPlain;  // hatched: filled with stripes in the stroke colour
};

struct Letters {
    int size = 12;
    int colour = 0;
    bool bold = false;
    bool centred = false;  // at the place; otherwise the place is the left end of the base line
    double degrees = 0;    // clockwise about the place
};

class Pen {
 public:
    virtual ~Pen() = default;
    virtual void Line(PenPoint from, PenPoint to, const Style& style) = 0;
    virtual void Polygon(const std::vector<PenPoint>& corners, const Style& style) = 0;
    // Draws a bend from `from` to `to` whose legs point at `corner`.
    virtual void Bend(PenPoint from, PenPoint corner, PenPoint to, const Style& style) = 0;
    virtual void Circle(PenPoint centre, double radius, const Style& style) = 0;
    virtual void Text(PenPoint place, const std::string& text, const Letters& letters) = 0;

    void Rectangle(PenPoint corner, double width, double height, const Style& style) {
        const PenPoint end{corner.x + width, corner.y + height};
        Polygon({corner, {end.x, corner.y}, end, {corner.x, end.y}}, style);
    }
};

}  // namespace bench
