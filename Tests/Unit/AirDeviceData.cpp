// Binary attributes of the product record, byte for byte.
#include "AirDeviceData.h"

#include "Lib/FormatText.h"
#include "gtest/gtest.h"

namespace {

template <class Element>
std::string Read(const std::string& xml, Element (*read)(const ticpp::Element&)) {
    ticpp::Document document;
    document.Parse(xml);
    const Element element = read(*document.FirstChildElement());
    return HexText(&element, sizeof element);
}

std::string Dimensions(const std::string& dpMin, const std::string& dpMax, const std::string& fnc = "10") {
    return Read("<AirDeviceDimData><Fnc>" + fnc +
                    "</Fnc><D1>250</D1><D2>-2</D2><Qvmin>0.5</Qvmin><Qvmax>1000</Qvmax><Dpmin>" + dpMin +
                    "</Dpmin><Dpmax>" + dpMax + "</Dpmax></AirDeviceDimData>",
                ReadDimensions);
}

TEST(AirDeviceData, DimensionsAreTwentyTwoPackedBytes) {
    EXPECT_EQ(Dimensions("2", "50"), "0A00FA00FEFF0000003F00007A440000004000004842");
    EXPECT_EQ(Dimensions("2", "50", "65546").substr(0, 4), "0A00") << "low 16 bits";
}

TEST(AirDeviceData, MinimumPressureDropIsCorrected) {
    const std::string kTenth = "CDCCCC3D", kOne = "0000803F";
    const struct {
        const char *minimum, *maximum;
        std::string stored;
    } cases[] = {
        {"0", "15", kTenth},          {"0", "20", kTenth},   {"0", "20.1", kOne},
        {"0.0009", "20", kTenth},     {"0.001", "20", kOne}, {"0", "25", kOne},
        {"0.5", "15", kOne},          {"0.99", "99", kOne},  {"1", "15", kOne},
        {"1.0625", "15", "0000883F"}, {"-5", "15", kTenth},  {"-5", "25", kOne},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Dimensions(c.minimum, c.maximum).substr(28, 8), c.stored) << c.minimum << " of " << c.maximum;
}

TEST(AirDeviceData, OctaveBandsKeepTheirLowBytes) {
    const std::string bands =
        "<Lw63>300</Lw63><Lw125>-1</Lw125><Lw250>0</Lw250><Lw500>12.9</Lw500><Lw1000>x</Lw1000><Lw2000>255</Lw2000>"
        "<Lw4000>256</Lw4000><Lw8000> 7</Lw8000>";
    EXPECT_EQ(Read("<dLw>" + bands + "</dLw>", ReadSoundLevelDifference), "2CFF000C00FF0007");
    EXPECT_EQ(Read("<p><Qv>1</Qv><Dp>2</Dp>" + bands + "</p>", ReadAirflowSoundPoint),
              "0000803F000000402CFF000C00FF0007");
}

TEST(AppendArrayElement, RefusesBadArguments) {
    void* array = nullptr;
    int count = 0;
    const int element = 5;
    EXPECT_EQ(AppendArrayElement(nullptr, &count, 4, &element), -1);
    EXPECT_EQ(AppendArrayElement(&array, nullptr, 4, &element), -1);
    EXPECT_EQ(AppendArrayElement(&array, &count, 0, &element), -1);
    EXPECT_EQ(AppendArrayElement(&array, &count, 4, nullptr), -1);
    EXPECT_TRUE(array == nullptr && count == 0);
}

}  // namespace
