#include "SvgWriter.h"

#include <cmath>
#include <cstdio>

namespace bench {
namespace {

std::string Attribute(const char* name, double value) {
    return std::string(" ") + name + "='" + SvgNumber(value) + "'";
}

std::string Pair(SvgPoint point) {
    return SvgNumber(point.x) + " " + SvgNumber(point.y);
}

}  // namespace

std::string SvgNumber(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", std::fabs(value) < 0.005 ? 0.0 : value);
    std::string number = text;
    number.erase(number.find_last_not_of('0') + 1);
    if (number.back() == '.') number.pop_back();
    return number;
}

std::string SvgEscaped(const std::string& text) {
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
    if (degrees != 0) body_ += " transform='rotate(" + SvgNumber(degrees) + " " + Pair(place) + ")'";
    body_ += " " + style + ">" + SvgEscaped(text) + "</text>\n";
}

std::string SvgWriter::Document() const {
    return "<?xml version='1.0' encoding='UTF-8'?>\n<svg xmlns='http://www.w3.org/2000/svg'" +
           Attribute("width", width_) + Attribute("height", height_) + " viewBox='0 0 " + SvgNumber(width_) + " " +
           SvgNumber(height_) + "' font-family='Segoe UI, Helvetica, Arial, sans-serif'>\n<defs>\n" + definitions_ +
           "</defs>\n" + body_ + "</svg>\n";
}

}  // namespace bench
