#include "FloorPlanDrawing.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "BenchTexts.h"

namespace bench {
namespace {

constexpr double kWidth = 1400;
constexpr double kMargin = 70;
constexpr double kHeader = 104;
constexpr double kFooter = 104;
constexpr double kMaxPlanHeight = 900;  // of the plan itself
constexpr double kSurround = 700;       // mm shown around the outermost parts
constexpr double kInsulation = 100;     // mm by which a silencer is thicker than its duct
constexpr double kCharacter = 6.6;      // width of a label's letter
constexpr double kPi = 3.14159265358979323846;
constexpr double kMetre = 1000;
constexpr double kClickTolerance = 10;  // pixels around a part within which a click selects it

struct Colour {
    int line;
    int fill;
};
constexpr Colour kColours[] = {{0x1f5f9f, 0xcfe2f5}, {0xb86a12, 0xfae3c4}, {0x2c7f4b, 0xd2eedb},
                               {0x7a5236, 0xeadccf}, {0x6a4aa0, 0xe3d9f3}, {0x9c2f55, 0xf6d5e0}};

const Colour& ColourOf(size_t system) {
    return kColours[system % std::size(kColours)];
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
        include(part.start, part.across / 2 + kSurround);
        include(Along(part.start, part.direction, part.length), part.across / 2 + kSurround);
    }
    return bounds;
}

// The position of the plan on the page.
struct Layout {
    explicit Layout(const FloorPlan& plan) : bounds(BoundsOf(plan)) {
        const double wide = std::max(bounds.right - bounds.left, 1.0);
        const double tall = std::max(bounds.top - bounds.bottom, 1.0);
        scale = std::min((kWidth - 2 * kMargin) / wide, kMaxPlanHeight / tall);
        height = kHeader + kFooter + (bounds.top - bounds.bottom) * scale;
        left = (kWidth - (bounds.right - bounds.left) * scale) / 2;
    }
    PenPoint Place(const PlanPoint& point) const {
        return {left + (point.x - bounds.left) * scale, kHeader + (bounds.top - point.y) * scale};
    }

    const Bounds bounds;
    double scale = 1;  // pixels per mm
    double height = 0;
    double left = 0;
};

double Upright(double degrees) {
    if (degrees > 90) return degrees - 180;
    return degrees <= -90 ? degrees + 180 : degrees;
}

class PlanPainter {
 public:
    PlanPainter(const FloorPlan& plan, Pen& pen) : plan_(plan), layout_(plan), scale_(layout_.scale), pen_(pen) {}

    void Draw() {
        pen_.Rectangle({0, 0}, kWidth, layout_.height, {0xffffff});
        Grid();
        for (const PlanPart& part : plan_.parts)
            if (part.kind == PlanPart::Kind::kFitting) Fitting(part);
        for (const PlanPart& part : plan_.parts) {
            if (part.kind == PlanPart::Kind::kDuct) Duct(part);
            if (part.kind == PlanPart::Kind::kSilencer) Silencer(part);
            if (part.kind == PlanPart::Kind::kTerminal) Terminal(part);
            if (part.kind == PlanPart::Kind::kUnit) Unit(part);
        }
        for (const PlanPart& part : plan_.parts) {
            if (part.kind == PlanPart::Kind::kDuct) DuctLabel(part);
            if (part.kind == PlanPart::Kind::kSilencer) SilencerLabel(part);
            if (part.kind == PlanPart::Kind::kTerminal) TerminalLabel(part);
        }
        Header();
        Legend();
        ScaleBar();
    }

 private:
    PenPoint Place(const PlanPoint& point) const { return layout_.Place(point); }
    double Size(double millimetres, double atLeast) const { return std::max(millimetres * scale_, atLeast); }
    static Style Stroke(int colour, double width, Style::Kind kind = Style::kPlain) {
        return {kNoColour, colour, width, kind};
    }
    static Style Filled(int fill, int line, double width) { return {fill, line, width, Style::kPlain}; }

    void Grid() {
        const Style style = Stroke(0xe9eef3, 1);
        for (double x = std::ceil(layout_.bounds.left / kMetre) * kMetre; x <= layout_.bounds.right; x += kMetre)
            pen_.Line(Place({x, layout_.bounds.bottom}), Place({x, layout_.bounds.top}), style);
        for (double y = std::ceil(layout_.bounds.bottom / kMetre) * kMetre; y <= layout_.bounds.top; y += kMetre)
            pen_.Line(Place({layout_.bounds.left, y}), Place({layout_.bounds.right, y}), style);
    }

    // Returns the corners of a straight part that is `across` pixels wide.
    std::vector<PenPoint> Body(const PlanPart& part, double across) const {
        const PenPoint from = Place(part.start);
        const PenPoint to = Place(Along(part.start, part.direction, part.length));
        const double x = part.direction.y * across / 2;
        const double y = part.direction.x * across / 2;
        return {{from.x - x, from.y - y}, {to.x - x, to.y - y}, {to.x + x, to.y + y}, {from.x + x, from.y + y}};
    }

    void Duct(const PlanPart& part) {
        const Colour& colour = ColourOf(part.system);
        const Style style = Filled(colour.fill, colour.line, 1.4);
        if (part.direction.x == 0 && part.direction.y == 0) {
            pen_.Circle(Place(part.start), Size(part.across, 5) / 2, style);
            return;
        }
        pen_.Polygon(Body(part, Size(part.across, 5)), style);
        pen_.Line(Place(part.start), Place(Along(part.start, part.direction, part.length)),
                  Stroke(colour.line, 0.7, Style::kDashed));
    }

    void Fitting(const PlanPart& part) {
        const Colour& colour = ColourOf(part.system);
        const auto draw = [&](int line, double wider) {
            if (part.ends.size() == 2) {
                const double across = Size(std::max(part.ends[0].across, part.ends[1].across), 5);
                pen_.Bend(Place(part.ends[0].point), Place(part.start), Place(part.ends[1].point),
                          Stroke(line, across + wider));
                return;
            }
            for (const PlanEnd& end : part.ends)
                pen_.Line(Place(part.start), Place(end.point),
                          Stroke(line, Size(end.across, 5) + wider, Style::kRoundEnds));
        };
        draw(colour.line, 1.4);
        draw(colour.fill, -1.4);
    }

    void Silencer(const PlanPart& part) {
        const Colour& colour = ColourOf(part.system);
        pen_.Polygon(Body(part, Size(part.across + kInsulation, 13)), Stroke(colour.line, 2, Style::kHatched));
        pen_.Polygon(Body(part, Size(part.across, 5) * 0.62), Filled(colour.fill, colour.line, 1));
        if (!part.marked) return;
        const PenPoint middle = Place(Along(part.start, part.direction, part.length / 2));
        pen_.Circle(middle, Size(std::max(part.length, part.across), 30) * 0.62 + 12,
                    Stroke(0xc8102e, 2, Style::kDashed));
    }

    void Terminal(const PlanPart& part) {
        const PenPoint centre = Place(part.start);
        const double half = HalfTerminal(part);
        CrossedSquare({centre.x - half, centre.y - half}, 2 * half, Filled(0xffffff, ColourOf(part.system).line, 1.6));
    }

    double HalfTerminal(const PlanPart& part) const { return Size(std::max(part.across * 1.6, 250.0), 16) / 2; }

    void CrossedSquare(PenPoint corner, double size, const Style& style) {
        pen_.Rectangle(corner, size, size, style);
        const PenPoint end = {corner.x + size, corner.y + size};
        pen_.Line(corner, end, Stroke(style.stroke, 1));
        pen_.Line({corner.x, end.y}, {end.x, corner.y}, Stroke(style.stroke, 1));
    }

    // An air handling unit fills the space between its ducts.
    void Unit(const PlanPart& part) {
        PenPoint low = Place(part.start);
        PenPoint high = low;
        for (const PlanEnd& end : part.ends) {
            const PenPoint place = Place(end.point);
            const double half = Size(end.across, 5) / 2;
            low = {std::min(low.x, place.x), std::min(low.y, place.y - half)};
            high = {std::max(high.x, place.x), std::max(high.y, place.y + half)};
        }
        const double wide = std::max(high.x - low.x, 40.0);
        pen_.Rectangle({high.x - wide, low.y - 6}, wide, high.y - low.y + 12, Filled(0xeef1f4, 0x46535f, 1.8));
        pen_.Text({high.x - wide / 2, (low.y + high.y) / 2 + 5}, part.userCode, Letters{14, 0x26323c, true, true});
    }

    // Draws size and airflow along the duct, on two lines if it is short, and the handle on the other side.
    void DuctLabel(const PlanPart& part) {
        const double degrees = Upright(-std::atan2(part.direction.y, part.direction.x) * 180 / kPi);
        const double radians = degrees * kPi / 180;
        const double space = part.length * scale_;
        const PenPoint middle = Place(Along(part.start, part.direction, part.length / 2));
        const auto write = [&](const std::string& text, double away, int size, int colour) {
            if (space < kCharacter * size / 12 * static_cast<double>(text.size())) return;
            pen_.Text({middle.x + std::sin(radians) * away, middle.y - std::cos(radians) * away}, text,
                      Letters{size, colour, false, true, degrees});
        };
        const double away = Size(part.across, 5) / 2 + 6;
        const std::string airflow = part.airflow.empty() ? "" : part.airflow + " l/s";
        const std::string line = airflow.empty() ? part.size : part.size + " \xC2\xB7 " + airflow;
        const bool fits = space >= kCharacter * static_cast<double>(line.size());
        write(fits ? line : airflow, away, 12, 0x26323c);
        if (!fits) write(part.size, away + 13, 12, 0x26323c);
        write(part.handle, -away - 9, 10, 0x8a97a3);
    }

    void SilencerLabel(const PlanPart& part) {
        const Colour& colour = ColourOf(part.system);
        const PenPoint middle = Place(Along(part.start, part.direction, part.length / 2));
        const double wide =
            20 + std::max(80.0, 7.6 * static_cast<double>(std::max(part.userCode.size(), part.product.size())));
        const PenPoint corner = {middle.x + 52, middle.y - Size(part.across + kInsulation, 13) / 2 - 82};
        pen_.Line(middle, {corner.x + 10, corner.y + 42}, Stroke(0x26323c, 1));
        pen_.Circle(middle, 2.6, {0x26323c});
        pen_.Rectangle(corner, wide, 42, Filled(0xffffff, part.marked ? 0xc8102e : colour.line, 1.6));
        pen_.Text({corner.x + 10, corner.y + 18}, part.userCode, Letters{14, 0x15202a, true});
        pen_.Text({corner.x + 10, corner.y + 34}, part.product, Letters{12, 0x46535f});
    }

    void TerminalLabel(const PlanPart& part) {
        if (part.airflow.empty()) return;
        // On the side without a duct.
        const PenPoint centre = Place(part.start);
        const double below = part.direction.y > 0.5 ? -HalfTerminal(part) - 6 : HalfTerminal(part) + 14;
        pen_.Text({centre.x, centre.y + below}, part.airflow + " l/s", Letters{11, 0x46535f, false, true});
    }

    void Header() {
        pen_.Text({kMargin, 46}, plan_.title, Letters{24, 0x15202a, true});
        pen_.Text({kMargin, 72}, plan_.subtitle, Letters{14, 0x46535f});
        pen_.Line({kMargin, kHeader - 16}, {kWidth - kMargin, kHeader - 16}, Stroke(0xc3ced8, 1));
    }

    void Legend() {
        const double top = layout_.height - kFooter + 34;
        pen_.Line({kMargin, top - 22}, {kWidth - kMargin, top - 22}, Stroke(0xc3ced8, 1));
        std::set<size_t> used;
        for (const PlanPart& part : plan_.parts)
            used.insert(part.system);
        double x = kMargin;
        for (size_t system : used) {
            if (system >= plan_.systems.size()) continue;
            const PlanSystem& entry = plan_.systems[system];
            const Colour& colour = ColourOf(system);
            const std::string text = entry.id + (entry.name.empty() || entry.name == entry.id ? "" : "  " + entry.name);
            pen_.Rectangle({x, top - 9}, 34, 14, Filled(colour.fill, colour.line, 1.4));
            pen_.Text({x + 44, top + 3}, text, Letters{13, 0x26323c});
            x += 44 + 7.4 * static_cast<double>(text.size()) + 34;
        }
        const double second = top + 30;
        pen_.Rectangle({kMargin, second - 11}, 34, 18, Stroke(kColours[0].line, 1.6, Style::kHatched));
        pen_.Text({kMargin + 44, second + 3}, "Silencer", Letters{13, 0x26323c});
        CrossedSquare({kMargin + 140, second - 10}, 16, Filled(0xffffff, kColours[0].line, 1.4));
        pen_.Text({kMargin + 166, second + 3}, "Terminal", Letters{13, 0x26323c});
        pen_.Text({kMargin + 250, second + 3},
                  "Sizes in mm, airflows in l/s, grid 1 m; small grey figures are handles.", Letters{12, 0x7b8894});
    }

    void ScaleBar() {
        double metres = 1;
        for (double candidate : {2.0, 5.0, 10.0, 20.0})
            if (candidate * kMetre * scale_ <= 260) metres = candidate;
        const double step = metres * kMetre * scale_ / 4;
        const double left = kWidth - kMargin - 4 * step - 30;
        const double top = layout_.height - kFooter + 52;
        for (int i = 0; i < 4; ++i)
            pen_.Rectangle({left + i * step, top}, step, 7, Filled(i % 2 ? 0xffffff : 0x26323c, 0x26323c, 1));
        for (int i = 0; i <= 4; i += 2)
            pen_.Text({left + i * step, top + 22}, NumberText(metres * i / 4) + (i == 4 ? " m" : ""),
                      Letters{12, 0x26323c, false, true});
    }

    const FloorPlan& plan_;
    const Layout layout_;
    const double scale_;
    Pen& pen_;
};

}  // namespace

PlanPoint Along(const PlanPoint& start, const PlanPoint& direction, double distance) {
    return {start.x + direction.x * distance, start.y + direction.y * distance};
}

PenPoint SizeOfDrawing(const FloorPlan& plan) {
    return {kWidth, Layout(plan).height};
}

void DrawFloorPlan(const FloorPlan& plan, Pen& pen) {
    PlanPainter(plan, pen).Draw();
}

std::string PartAt(const FloorPlan& plan, PenPoint place) {
    const Layout layout(plan);
    std::string nearest;
    double best = kClickTolerance;
    for (const PlanPart& part : plan.parts) {
        // The distance from the part's centre line, in pixels along and across it.
        const PenPoint start = layout.Place(part.start);
        const double x = place.x - start.x, y = start.y - place.y;
        const double along = x * part.direction.x + y * part.direction.y;
        const double beyond = along - std::clamp(along, 0.0, part.length * layout.scale);
        const double aside = std::hypot(x - along * part.direction.x, y - along * part.direction.y);
        const double away = std::hypot(beyond, std::max(aside - part.across * layout.scale / 2, 0.0));
        if (away >= best) continue;
        best = away;
        nearest = part.handle;
    }
    return nearest;
}

}  // namespace bench
