#include "Figures.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "tinyxml.h"

namespace bench {
namespace {

double Number(const std::string& text) {
    return std::strtod(text.c_str(), nullptr);
}

bool SameSize(double duct, const std::string& product) {
    return duct > 0 && std::fabs(duct - Number(product)) < 0.5;
}

double SquareLaw(const CurvePoint& point, double airflow) {
    const double ratio = airflow / Number(point.qv);
    return Number(point.dp) * ratio * ratio;
}

}  // namespace

bool Fits(const Silencer& silencer, const Duct& duct) {
    const bool sizeFits = silencer.series.shape == "1"
                              ? SameSize(duct.width, silencer.d1) && SameSize(duct.height, silencer.d2)
                              : SameSize(duct.diameter, silencer.d1);
    const bool airflowFits =
        duct.airflow <= 0 || (duct.airflow >= Number(silencer.qvMin) && duct.airflow <= Number(silencer.qvMax));
    return sizeFits && airflowFits;
}

double PressureDrop(const Silencer& silencer, double airflow) {
    const std::vector<CurvePoint>& points = !silencer.dpPoints.empty()  ? silencer.dpPoints
                                            : !silencer.dpCurve.empty() ? silencer.dpCurve
                                                                        : silencer.flowNoise;
    if (points.empty()) return 0;
    if (airflow <= Number(points.front().qv)) return SquareLaw(points.front(), airflow);
    for (size_t i = 1; i < points.size(); ++i) {
        const double low = Number(points[i - 1].qv);
        const double high = Number(points[i].qv);
        if (airflow > high) continue;
        const double share = (airflow * airflow - low * low) / (high * high - low * low);
        return Number(points[i - 1].dp) + share * (Number(points[i].dp) - Number(points[i - 1].dp));
    }
    return SquareLaw(points.back(), airflow);
}

std::string AttenuationAt250(const Silencer& silencer) {
    return silencer.insertionLosses.empty() ? std::string() : silencer.insertionLosses.front()[2];
}

std::string ProductsPage(const Catalogue& catalogue, const Duct& duct) {
    TiXmlDocument document;
    document.LinkEndChild(new TiXmlDeclaration("1.0", "UTF-8", ""));
    TiXmlElement* root = new TiXmlElement("products");
    document.LinkEndChild(root);
    for (const Silencer& silencer : catalogue.silencers) {
        if (!Fits(silencer, duct)) continue;
        char pressureDrop[32];
        std::snprintf(pressureDrop, sizeof pressureDrop, "%.1f", PressureDrop(silencer, duct.airflow));
        TiXmlElement* product = new TiXmlElement("product");
        root->LinkEndChild(product);
        product->SetAttribute("id", silencer.id);
        product->SetAttribute("code", silencer.code);
        product->SetAttribute("length", silencer.length);
        product->SetAttribute("pressureDrop", pressureDrop);
        product->SetAttribute("attenuation250", AttenuationAt250(silencer));
    }
    TiXmlPrinter printer;
    document.Accept(&printer);
    return printer.Str();
}

}  // namespace bench
