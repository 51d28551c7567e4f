// Texts of configurator results for cases that the catalogue does not have: a device whose fields can be left out or
// replaced one by one.
#pragma once

#include <string>
#include <utility>
#include <vector>

class DeviceText {
 public:
    DeviceText() {
        const std::string bands =
            "<Lw63>1</Lw63><Lw125>2</Lw125><Lw250>3</Lw250><Lw500>4</Lw500><Lw1000>5</Lw1000><Lw2000>6</Lw2000>"
            "<Lw4000>7</Lw4000><Lw8000>8</Lw8000>";
        fields_ = {
            {"ID", "TEST-1"},
            {"ProductCodeALL", "TEST 1"},
            {"DescriptionGBR", "Test silencer"},
            {"KModelID", "sv-src-round"},
            {"AirDeviceDimData", Dimensions("10")},
            {"DpCurve", "<Qv>100</Qv><Dp>12</Dp>"},
            {"QvDpLwPoints", "<Qv>100</Qv><Dp>12</Dp>" + bands},
            {"dLw", bands},
            {"Shape", "0"},
        };
    }

    static std::string Dimensions(const std::string& fnc) {
        return "<Fnc>" + fnc +
               "</Fnc><D1>250</D1><D2>0</D2><Qvmin>10</Qvmin><Qvmax>400</Qvmax><Dpmin>2</Dpmin><Dpmax>50</Dpmax>";
    }

    DeviceText& Without(const std::string& name) {
        for (auto field = fields_.begin(); field != fields_.end();)
            field = field->first == name ? fields_.erase(field) : field + 1;
        return *this;
    }
    DeviceText& With(const std::string& name, const std::string& contents) {
        for (auto& field : fields_) {
            if (field.first == name) {
                field.second = contents;
                return *this;
            }
        }
        return And(name, contents);
    }
    // One more of a name.
    DeviceText& And(const std::string& name, const std::string& contents) {
        fields_.emplace_back(name, contents);
        return *this;
    }

    std::string Text() const {
        std::string text = "<device>";
        for (const auto& [name, contents] : fields_)
            text += "<" + name + ">" + contents + "</" + name + ">";
        return text + "</device>";
    }

 private:
    std::vector<std::pair<std::string, std::string>> fields_;
};

inline constexpr char kDictionaryUrl[] = WEB_SERVER "/klimora/database/2.4/sorvik.ddk";
inline constexpr char kDatabaseUrl[] = WEB_SERVER "/klimora/database/2.4/sorvik.kpd";

inline std::string ResultText(const std::string& devices) {
    return std::string("<result><DdkFileUrl>") + kDictionaryUrl + "</DdkFileUrl><KpdFileUrl>" + kDatabaseUrl +
           "</KpdFileUrl>" + devices + "</result>";
}
