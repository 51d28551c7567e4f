// Corrections of the record's binary attributes, and growing arrays.
#include "AirDeviceData.h"

#include <cstdlib>

#include "Lib/FormatText.h"
#include "gtest/gtest.h"

namespace {

TEST(AirDeviceData, RaisesTooSmallMinimumPressureDrops) {
    const std::string kTenth = "CDCCCC3D", kOne = "0000803F";
    const struct {
        const char *minimum, *maximum;
        std::string stored;
    } cases[] = {
        {"0", "20", kTenth},  {"0", "20.1", kOne},          {"0.0009", "20", kTenth}, {"0.001", "20", kOne},
        {"0.99", "99", kOne}, {"1.0625", "15", "0000883F"}, {"-5", "15", kTenth},
    };
    for (const auto& c : cases) {
        ticpp::Document document;
        document.Parse(std::string("<AirDeviceDimData><Fnc>65546</Fnc><D1>250</D1><D2>0</D2><Qvmin>1</Qvmin><Qvmax>9"
                                   "</Qvmax><Dpmin>") +
                       c.minimum + "</Dpmin><Dpmax>" + c.maximum + "</Dpmax></AirDeviceDimData>");
        const auto dimensions = ReadDimensions(*document.FirstChildElement());
        const std::string bytes = HexText(&dimensions, sizeof dimensions);
        EXPECT_EQ(bytes.substr(0, 4) + bytes.substr(28, 8), "0A00" + c.stored) << c.minimum << " of " << c.maximum;
    }
}

TEST(AppendArrayElement, RejectsBadArguments) {
    void* array = nullptr;
    int count = 0;
    const int element = 5;
    EXPECT_EQ(AppendArrayElement(nullptr, &count, 4, &element), -1);
    EXPECT_EQ(AppendArrayElement(&array, nullptr, 4, &element), -1);
    EXPECT_EQ(AppendArrayElement(&array, &count, 0, &element), -1);
    EXPECT_EQ(AppendArrayElement(&array, &count, 4, nullptr), -1);
    EXPECT_TRUE(array == nullptr && count == 0);
    EXPECT_EQ(AppendArrayElement(&array, &count, 1, "x"), 0) << "one byte is enough";
    std::free(array);
}

}  // namespace
