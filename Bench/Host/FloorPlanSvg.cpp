#include "FloorPlanSvg.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "BenchTexts.h"
#include "SvgWriter.h"

namespace bench {
namespace {

constexpr double kWidth = 1400;
constexpr double kMargin = 70;
constexpr double kHeader = 104;
constexpr double kFooter = 104;
constexpr double kTallest = 900;     // of the plan itself
constexpr double kAround = 700;      // mm shown around the outermost parts
constexpr double kInsulation = 100;  // mm by which a silencer is thicker than its duct
constexpr double kCharacter = 6.6;   // width of a label's letter
constexpr double kPi = 3.14159265358979323846;
constexpr double kMetre = 1000;

struct Colour {
    const char* line;
    const char* fill;
};
constexpr Colour kColours[] = {{"#1f5f9f", "#cfe2f5"}, {"#b86a12", "#fae3c4"}, {"#2c7f4b", "#d2eedb"},
                               {"#7a5236", "#eadccf"}, {"#6a4aa0", "#e3d9f3"}, {"#9c2f55", "#f6d5e0"}};

const Colour& ColourOf(const FloorPlan& plan, size_t system) {
    const int count = static_cast<int>(std::size(kColours));
    const int number = system < plan.systems.size() ? plan.systems[system].colour : 0;
    return kColours[((number % count) + count) % count];
}

struct Bounds {
    double left = 0, right = 0, bottom = 0, top = 0;
};

Bounds BoundsOf(const FloorPlan& plan) {
    Bounds bounds;
    bool first = true;
    const auto include = [&](const PlanPoint& point, double around) {
        bounds.left = first ? point.x - around : std::min(bounds.left, point.x - around);
        bounds.right = first ? point.x + around : std::max(bounds.right, point.x + around);
        bounds.bottom = first ? point.y - around : std::min(bounds.bottom, point.y - around);
        bounds.top = first ? point.y + around : std::max(bounds.top, point.y + around);
        first = false;
    };
    for (const PlanPart& part : plan.parts) {
        include(part.start, part.across / 2 + kAround);
        include(Along(part.start, part.direction, part.length), part.across / 2 + kAround);
    }
    return bounds;
}

double Upright(double degrees) {
    if (degrees > 90) return degrees - 180;
    return degrees <= -90 ? degrees + 180 : degrees;
}

class Drawing {
 public:
    Drawing(const FloorPlan& plan, const Bounds& bounds, double scale)
        : plan_(plan),
          bounds_(bounds),
          scale_(scale),
          height_(kHeader + kFooter + (bounds.top - bounds.bottom) * scale),
          svg_(kWidth, height_) {}

    std::string Draw() {
        Definitions();
        svg_.Rectangle({0, 0}, kWidth, height_, "fill='#ffffff'");
        Grid();
        for (const PlanPart& part : plan_.parts)
            if (part.kind == PlanPart::Kind::kFitting) Fitting(part);
        for (const PlanPart& part : plan_.parts) {
            if (part.kind == PlanPart::Kind::kDuct) Duct(part);
            if (part.kind == PlanPart::Kind::kSilencer) Silencer(part);
            if (part.kind == PlanPart::Kind::kTerminal) Terminal(part);
            if (part.kind == PlanPart::Kind::kUnit) Unit(part);
        }
        for (const PlanPart& part : plan_.parts)
            Label(part);
        Header();
        Legend();
        ScaleBar();
        return svg_.Document();
    }

 private:
    SvgPoint Place(const PlanPoint& point) const {
        const double left = (kWidth - (bounds_.right - bounds_.left) * scale_) / 2;
        return {left + (point.x - bounds_.left) * scale_, kHeader + (bounds_.top - point.y) * scale_};
    }
    double Size(double millimetres, double atLeast) const { return std::max(millimetres * scale_, atLeast); }
    static std::string Stroke(const char* colour, double width) {
        return std::string("stroke='") + colour + "' stroke-width='" + NumberText(width, 2) + "'";
    }

    void Definitions() {
        for (size_t i = 0; i < std::size(kColours); ++i)
            svg_.Definition("<pattern id='wool" + std::to_string(i) +
                            "' width='7' height='7' patternUnits='userSpaceOnUse' patternTransform='rotate(45)'>"
                            "<rect width='7' height='7' fill='#ffffff'/><line x1='0' y1='0' x2='0' y2='7' stroke='" +
                            kColours[i].line + "' stroke-width='2.4'/></pattern>");
    }

    void Grid() {
        const std::string style = "stroke='#e9eef3' stroke-width='1'";
        for (double x = std::ceil(bounds_.left / kMetre) * kMetre; x <= bounds_.right; x += kMetre)
            svg_.Line(Place({x, bounds_.bottom}), Place({x, bounds_.top}), style);
        for (double y = std::ceil(bounds_.bottom / kMetre) * kMetre; y <= bounds_.top; y += kMetre)
            svg_.Line(Place({bounds_.left, y}), Place({bounds_.right, y}), style);
    }

    // The corners of a straight part that is `across` pixels wide.
    std::vector<SvgPoint> Body(const PlanPart& part, double across) const {
        const SvgPoint from = Place(part.start);
        const SvgPoint to = Place(Along(part.start, part.direction, part.length));
        const double x = part.direction.y * across / 2;
        const double y = part.direction.x * across / 2;
        return {{from.x - x, from.y - y}, {to.x - x, to.y - y}, {to.x + x, to.y + y}, {from.x + x, from.y + y}};
    }

    void Duct(const PlanPart& part) {
        const Colour& colour = ColourOf(plan_, part.system);
        const std::string style = std::string("fill='") + colour.fill + "' " + Stroke(colour.line, 1.4);
        if (part.direction.x == 0 && part.direction.y == 0) {
            svg_.Circle(Place(part.start), Size(part.across, 5) / 2, style);
            return;
        }
        svg_.Polygon(Body(part, Size(part.across, 5)), style);
        svg_.Line(Place(part.start), Place(Along(part.start, part.direction, part.length)),
                  Stroke(colour.line, 0.7) + " stroke-dasharray='14 4 3 4' opacity='0.6'");
    }

    void Fitting(const PlanPart& part) {
        const Colour& colour = ColourOf(plan_, part.system);
        const auto draw = [&](const char* line, double wider) {
            if (part.ends.size() == 2) {
                const double across = Size(std::max(part.ends[0].across, part.ends[1].across), 5);
                svg_.Bend(Place(part.ends[0].point), Place(part.start), Place(part.ends[1].point),
                          Stroke(line, across + wider));
                return;
            }
            for (const PlanEnd& end : part.ends)
                svg_.Line(Place(part.start), Place(end.point),
                          Stroke(line, Size(end.across, 5) + wider) + " stroke-linecap='round'");
        };
        draw(colour.line, 1.4);
        draw(colour.fill, -1.4);
    }

    void Silencer(const PlanPart& part) {
        const int count = static_cast<int>(std::size(kColours));
        const int number = static_cast<int>(&ColourOf(plan_, part.system) - kColours) % count;
        const Colour& colour = kColours[number];
        svg_.Polygon(Body(part, Size(part.across + kInsulation, 13)),
                     "fill='url(#wool" + std::to_string(number) + ")' " + Stroke(colour.line, 2));
        svg_.Polygon(Body(part, Size(part.across, 5) * 0.62),
                     std::string("fill='") + colour.fill + "' " + Stroke(colour.line, 1));
        if (!part.marked) return;
        const SvgPoint middle = Place(Along(part.start, part.direction, part.length / 2));
        svg_.Circle(middle, Size(std::max(part.length, part.across), 30) * 0.62 + 12,
                    "fill='none' stroke='#c8102e' stroke-width='2' stroke-dasharray='7 4'");
    }

    void Terminal(const PlanPart& part) {
        const Colour& colour = ColourOf(plan_, part.system);
        const SvgPoint centre = Place(part.start);
        const double half = Size(std::max(part.across * 1.6, 250.0), 16) / 2;
        svg_.Rectangle({centre.x - half, centre.y - half}, 2 * half, 2 * half,
                       "fill='#ffffff' " + Stroke(colour.line, 1.6));
        svg_.Line({centre.x - half, centre.y - half}, {centre.x + half, centre.y + half}, Stroke(colour.line, 1));
        svg_.Line({centre.x - half, centre.y + half}, {centre.x + half, centre.y - half}, Stroke(colour.line, 1));
    }

    // An air handling unit fills the room between its ducts.
    void Unit(const PlanPart& part) {
        SvgPoint low = Place(part.start);
        SvgPoint high = low;
        for (const PlanEnd& end : part.ends) {
            const SvgPoint place = Place(end.point);
            const double half = Size(end.across, 5) / 2;
            low = {std::min(low.x, place.x), std::min(low.y, place.y - half)};
            high = {std::max(high.x, place.x), std::max(high.y, place.y + half)};
        }
        const double wide = std::max(high.x - low.x, 40.0);
        svg_.Rectangle({high.x - wide, low.y - 6}, wide, high.y - low.y + 12,
                       "rx='3' fill='#eef1f4' stroke='#46535f' stroke-width='1.8'");
        svg_.Text({high.x - wide / 2, (low.y + high.y) / 2 + 5}, part.userCode,
                  Letters(14, "font-weight='bold' text-anchor='middle' fill='#26323c'"));
    }

    void Label(const PlanPart& part) {
        switch (part.kind) {
            case PlanPart::Kind::kDuct:
                return DuctLabel(part);
            case PlanPart::Kind::kSilencer:
                return SilencerLabel(part);
            case PlanPart::Kind::kTerminal:
                return TerminalLabel(part);
            case PlanPart::Kind::kFitting:
            case PlanPart::Kind::kUnit:
                return;
        }
    }

    static std::string Letters(int size, const std::string& more) {
        return "font-size='" + std::to_string(size) + "' " + more;
    }

    // Size and airflow along the duct, one above the other where it is short, and its handle on the other side.
    void DuctLabel(const PlanPart& part) {
        const double degrees = Upright(-std::atan2(part.direction.y, part.direction.x) * 180 / kPi);
        const double radians = degrees * kPi / 180;
        const double room = part.length * scale_;
        const SvgPoint middle = Place(Along(part.start, part.direction, part.length / 2));
        const auto write = [&](const std::string& text, double away, int size, const char* colour) {
            if (room < kCharacter * size / 12 * static_cast<double>(text.size())) return;
            svg_.Text({middle.x + std::sin(radians) * away, middle.y - std::cos(radians) * away}, text,
                      Letters(size, std::string("text-anchor='middle' fill='") + colour + "'"), degrees);
        };
        const double away = Size(part.across, 5) / 2 + 6;
        const std::string airflow = part.airflow.empty() ? "" : part.airflow + " l/s";
        const std::string line = airflow.empty() ? part.size : part.size + " \xC2\xB7 " + airflow;
        const bool fits = room >= kCharacter * static_cast<double>(line.size());
        write(fits ? line : airflow, away, 12, "#26323c");
        if (!fits) write(part.size, away + 13, 12, "#26323c");
        write(part.handle, -away - 9, 10, "#8a97a3");
    }

    void SilencerLabel(const PlanPart& part) {
        const Colour& colour = ColourOf(plan_, part.system);
        const SvgPoint middle = Place(Along(part.start, part.direction, part.length / 2));
        const double wide =
            20 + std::max(80.0, 7.6 * static_cast<double>(std::max(part.userCode.size(), part.product.size())));
        const SvgPoint corner = {middle.x + 34, middle.y - Size(part.across + kInsulation, 13) / 2 - 82};
        svg_.Line(middle, {corner.x + 10, corner.y + 42}, "stroke='#26323c' stroke-width='1'");
        svg_.Circle(middle, 2.6, "fill='#26323c'");
        svg_.Rectangle(corner, wide, 42, "rx='5' fill='#ffffff' " + Stroke(part.marked ? "#c8102e" : colour.line, 1.6));
        svg_.Text({corner.x + 10, corner.y + 18}, part.userCode, Letters(14, "font-weight='bold' fill='#15202a'"));
        svg_.Text({corner.x + 10, corner.y + 34}, part.product, Letters(12, "fill='#46535f'"));
    }

    void TerminalLabel(const PlanPart& part) {
        if (part.airflow.empty()) return;
        // On the side where no duct comes from.
        const SvgPoint centre = Place(part.start);
        const double half = Size(std::max(part.across * 1.6, 250.0), 16) / 2;
        const double below = part.direction.y > 0.5 ? -half - 6 : half + 14;
        svg_.Text({centre.x, centre.y + below}, part.airflow + " l/s",
                  Letters(11, "text-anchor='middle' fill='#46535f'"));
    }

    void Header() {
        svg_.Text({kMargin, 46}, plan_.title, Letters(24, "font-weight='bold' fill='#15202a'"));
        svg_.Text({kMargin, 72}, plan_.subtitle, Letters(14, "fill='#46535f'"));
        svg_.Line({kMargin, kHeader - 16}, {kWidth - kMargin, kHeader - 16}, "stroke='#c3ced8' stroke-width='1'");
    }

    void Legend() {
        const double top = height_ - kFooter + 34;
        svg_.Line({kMargin, top - 22}, {kWidth - kMargin, top - 22}, "stroke='#c3ced8' stroke-width='1'");
        std::set<size_t> used;
        for (const PlanPart& part : plan_.parts)
            used.insert(part.system);
        double x = kMargin;
        for (size_t system : used) {
            if (system >= plan_.systems.size()) continue;
            const PlanSystem& entry = plan_.systems[system];
            const Colour& colour = ColourOf(plan_, system);
            const std::string text = entry.id + (entry.name.empty() || entry.name == entry.id ? "" : "  " + entry.name);
            svg_.Rectangle({x, top - 9}, 34, 14, std::string("fill='") + colour.fill + "' " + Stroke(colour.line, 1.4));
            svg_.Text({x + 44, top + 3}, text, Letters(13, "fill='#26323c'"));
            x += 44 + 7.4 * static_cast<double>(text.size()) + 34;
        }
        const double second = top + 30;
        svg_.Rectangle({kMargin, second - 11}, 34, 18, "fill='url(#wool0)' " + Stroke(kColours[0].line, 1.6));
        svg_.Text({kMargin + 44, second + 3}, "Silencer", Letters(13, "fill='#26323c'"));
        svg_.Rectangle({kMargin + 140, second - 10}, 16, 16, "fill='#ffffff' " + Stroke(kColours[0].line, 1.4));
        svg_.Line({kMargin + 140, second - 10}, {kMargin + 156, second + 6}, Stroke(kColours[0].line, 1));
        svg_.Line({kMargin + 140, second + 6}, {kMargin + 156, second - 10}, Stroke(kColours[0].line, 1));
        svg_.Text({kMargin + 166, second + 3}, "Terminal", Letters(13, "fill='#26323c'"));
        svg_.Text({kMargin + 250, second + 3},
                  "Sizes in mm, airflows in l/s, grid 1 m; small grey figures are handles.",
                  Letters(12, "fill='#7b8894'"));
    }

    void ScaleBar() {
        double metres = 1;
        for (double candidate : {2.0, 5.0, 10.0, 20.0})
            if (candidate * kMetre * scale_ <= 260) metres = candidate;
        const double step = metres * kMetre * scale_ / 4;
        const double left = kWidth - kMargin - 4 * step - 30;
        const double top = height_ - kFooter + 52;
        for (int i = 0; i < 4; ++i)
            svg_.Rectangle(
                {left + i * step, top}, step, 7,
                std::string("fill='") + (i % 2 ? "#ffffff" : "#26323c") + "' stroke='#26323c' stroke-width='1'");
        for (int i = 0; i <= 4; i += 2)
            svg_.Text({left + i * step, top + 22}, NumberText(metres * i / 4) + (i == 4 ? " m" : ""),
                      Letters(12, "text-anchor='middle' fill='#26323c'"));
    }

    const FloorPlan& plan_;
    const Bounds bounds_;
    const double scale_;
    const double height_;
    SvgWriter svg_;
};

}  // namespace

PlanPoint Along(const PlanPoint& start, const PlanPoint& direction, double distance) {
    return {start.x + direction.x * distance, start.y + direction.y * distance};
}

std::string FloorPlanSvg(const FloorPlan& plan) {
    const Bounds bounds = BoundsOf(plan);
    const double wide = std::max(bounds.right - bounds.left, 1.0);
    const double tall = std::max(bounds.top - bounds.bottom, 1.0);
    const double scale = std::min((kWidth - 2 * kMargin) / wide, kTallest / tall);
    return Drawing(plan, bounds, scale).Draw();
}

}  // namespace bench
