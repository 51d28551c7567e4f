// Writes a floor plan as an SVG file.
#include <tinyxml.h>

#include <cstdio>
#include <set>
#include <string>
#include <vector>

#include "BenchTexts.h"
#include "FloorPlanDrawing.h"
#include "Pen.h"

namespace bench {
namespace {

std::string Colour(int colour) {
    char text[8] = "none";
    if (colour != kNoColour) std::snprintf(text, sizeof text, "#%06x", static_cast<unsigned>(colour) & 0xFFFFFF);
    return text;
}

std::string Attribute(const char* name, const std::string& value) {
    return std::string(" ") + name + "='" + value + "'";
}

std::string Attribute(const char* name, double value) {
    return Attribute(name, NumberText(value, 2));
}

std::string Pair(PenPoint point) {
    return NumberText(point.x, 2) + " " + NumberText(point.y, 2);
}

class SvgPen : public Pen {
 public:
    void Line(PenPoint from, PenPoint to, const Style& style) override;
    void Polygon(const std::vector<PenPoint>& corners, const Style& style) override;
    void Bend(PenPoint from, PenPoint corner, PenPoint to, const Style& style) override;
    void Circle(PenPoint centre, double radius, const Style& style) override;
    void Text(PenPoint place, const std::string& text, const Letters& letters) override;

    std::string Document(PenPoint size) const;

 private:
    std::string Attributes(const Style& style);

    std::set<int> hatches_;  // their colours
    std::string body_;
};

std::string SvgPen::Attributes(const Style& style) {
    std::string fill = Colour(style.fill);
    if (style.kind == Style::kHatched) {
        hatches_.insert(style.stroke);
        fill = "url(#hatch" + Colour(style.stroke).substr(1) + ")";
    }
    std::string text = Attribute("fill", fill);
    if (style.stroke == kNoColour) return text;
    text += Attribute("stroke", Colour(style.stroke)) + Attribute("stroke-width", style.width);
    if (style.kind == Style::kDashed) text += Attribute("stroke-dasharray", "7 4");
    if (style.kind == Style::kRoundEnds) text += Attribute("stroke-linecap", "round");
    return text;
}

void SvgPen::Line(PenPoint from, PenPoint to, const Style& style) {
    body_ += "<line" + Attribute("x1", from.x) + Attribute("y1", from.y) + Attribute("x2", to.x) +
             Attribute("y2", to.y) + Attributes(style) + "/>\n";
}

void SvgPen::Polygon(const std::vector<PenPoint>& corners, const Style& style) {
    std::string points;
    for (const PenPoint& corner : corners)
        points += (points.empty() ? "" : ", ") + Pair(corner);
    body_ += "<polygon" + Attribute("points", points) + Attributes(style) + "/>\n";
}

void SvgPen::Bend(PenPoint from, PenPoint corner, PenPoint to, const Style& style) {
    body_ +=
        "<path" + Attribute("d", "M" + Pair(from) + " Q" + Pair(corner) + " " + Pair(to)) + Attributes(style) + "/>\n";
}

void SvgPen::Circle(PenPoint centre, double radius, const Style& style) {
    body_ += "<circle" + Attribute("cx", centre.x) + Attribute("cy", centre.y) + Attribute("r", radius) +
             Attributes(style) + "/>\n";
}

void SvgPen::Text(PenPoint place, const std::string& text, const Letters& letters) {
    body_ += "<text" + Attribute("x", place.x) + Attribute("y", place.y);
    if (letters.degrees != 0)
        body_ += Attribute("transform", "rotate(" + NumberText(letters.degrees, 2) + " " + Pair(place) + ")");
    if (letters.bold) body_ += Attribute("font-weight", "bold");
    if (letters.centred) body_ += Attribute("text-anchor", "middle");
    std::string escaped;
    TiXmlBase::EncodeString(text, &escaped);
    body_ +=
        Attribute("font-size", letters.size) + Attribute("fill", Colour(letters.colour)) + ">" + escaped + "</text>\n";
}

std::string SvgPen::Document(PenPoint size) const {
    std::string definitions;
    for (const int colour : hatches_)
        definitions += "<pattern id='hatch" + Colour(colour).substr(1) +
                       "' width='7' height='7' patternUnits='userSpaceOnUse' patternTransform='rotate(45)'>"
                       "<rect width='7' height='7' fill='#ffffff'/><line x1='0' y1='0' x2='0' y2='7' stroke='" +
                       Colour(colour) + "' stroke-width='2.4'/></pattern>\n";
    return "<?xml version='1.0' encoding='UTF-8'?>\n<svg xmlns='http://www.w3.org/2000/svg'" +
           Attribute("width", size.x) + Attribute("height", size.y) + Attribute("viewBox", "0 0 " + Pair(size)) +
           " font-family='Segoe UI, Helvetica, Arial, sans-serif'>\n<defs>\n" + definitions + "</defs>\n" + body_ +
           "</svg>\n";
}

}  // namespace

std::string FloorPlanSvg(const FloorPlan& plan) {
    SvgPen pen;
    DrawFloorPlan(plan, pen);
    return pen.Document(SizeOfDrawing(plan));
}

}  // namespace bench
