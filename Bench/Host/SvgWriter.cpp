#include "SvgWriter.h"

#include "BenchTexts.h"

namespace bench {
namespace {

std::string Number(double value) {
    return NumberText(value, 2);
}

std::string XmlText(const std::string& text) {
    std::string escaped;
    for (char c : text) {
        if (c == '&')
            escaped += "&amp;";
        else if (c == '<')
            escaped += "&lt;";
        else if (c == '>')
            escaped += "&gt;";
        else
            escaped += c;
    }
    return escaped;
}

std::string Attribute(const char* name, double value) {
    return std::string(" ") + name + "='" + Number(value) + "'";
}

std::string Pair(SvgPoint point) {
    return Number(point.x) + " " + Number(point.y);
}

}  // namespace

SvgWriter::SvgWriter(double width, double height) : width_(width), height_(height) {}

void SvgWriter::Definition(const std::string& element) {
    definitions_ += element + "\n";
}

void SvgWriter::Rectangle(SvgPoint corner, double width, double height, const std::string& style) {
    body_ += "<rect" + Attribute("x", corner.x) + Attribute("y", corner.y) + Attribute("width", width) +
             Attribute("height", height) + " " + style + "/>\n";
}

void SvgWriter::Line(SvgPoint from, SvgPoint to, const std::string& style) {
    body_ += "<line" + Attribute("x1", from.x) + Attribute("y1", from.y) + Attribute("x2", to.x) +
             Attribute("y2", to.y) + " " + style + "/>\n";
}

void SvgWriter::Polygon(const std::vector<SvgPoint>& corners, const std::string& style) {
    body_ += "<polygon points='";
    for (const SvgPoint& corner : corners)
        body_ += (&corner == &corners.front() ? "" : ", ") + Pair(corner);
    body_ += "' " + style + "/>\n";
}

void SvgWriter::Bend(SvgPoint from, SvgPoint corner, SvgPoint to, const std::string& style) {
    body_ += "<path d='M" + Pair(from) + " Q" + Pair(corner) + " " + Pair(to) + "' fill='none' " + style + "/>\n";
}

void SvgWriter::Circle(SvgPoint centre, double radius, const std::string& style) {
    body_ += "<circle" + Attribute("cx", centre.x) + Attribute("cy", centre.y) + Attribute("r", radius) + " " + style +
             "/>\n";
}

void SvgWriter::Text(SvgPoint place, const std::string& text, const std::string& style, double degrees) {
    body_ += "<text" + Attribute("x", place.x) + Attribute("y", place.y);
    if (degrees != 0) body_ += " transform='rotate(" + Number(degrees) + " " + Pair(place) + ")'";
    body_ += " " + style + ">" + XmlText(text) + "</text>\n";
}

std::string SvgWriter::Document() const {
    return "<?xml version='1.0' encoding='UTF-8'?>\n<svg xmlns='http://www.w3.org/2000/svg'" +
           Attribute("width", width_) + Attribute("height", height_) + " viewBox='0 0 " + Number(width_) + " " +
           Number(height_) + "' font-family='Segoe UI, Helvetica, Arial, sans-serif'>\n<defs>\n" + definitions_ +
           "</defs>\n" + body_ + "</svg>\n";
}

}  // namespace bench
