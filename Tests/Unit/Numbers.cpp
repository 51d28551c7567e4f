// Reading and writing real numbers.
#include "Lib/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "CommaLocale.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Numbers, ReadsLikeTheRuntimeInTheCLocale) {
    const CommaLocale locale;
    const struct {
        const char* text;
        double value;
        int length;  // 0 when there is no number
    } cases[] = {{"25.5 440", 25.5, 4},
                 {" \t\n\v\f\r+.5x", 0.5, 9},
                 {"-2,5", -2, 2},
                 {"1e3", 1000, 3},
                 {"1e", 1, 1},
                 {"1e+", 1, 1},
                 {"-0x1.8P+1z", -3, 9},
                 {"0x1Ep-9999", 0, 10},
                 {"0xAp9999", kInfinity, 8},
                 {"0x", 0, 1},
                 {"0xg", 0, 1},
                 {"-INF", -kInfinity, 4},
                 {"1e400", kInfinity, 5},
                 {"-1E+400", -kInfinity, 7},
                 {"1e-400", 0, 6},
                 {"4.9e-324", 4.9e-324, 8},
                 {"", 0, 0},
                 {" ", 0, 0},
                 {"--1", 0, 0},
                 {"+-1", 0, 0},
                 {",5", 0, 0},
                 {".", 0, 0}};
    for (const auto& c : cases) {
        double value = -99;
        EXPECT_EQ(ReadReal(c.text, value) - c.text, c.length) << c.text;
        EXPECT_EQ(value, c.length ? c.value : -99) << c.text;
        EXPECT_EQ(ToReal(c.text), c.value) << c.text;
    }
    double value = 0;
    ReadReal("nan", value);
    EXPECT_TRUE(std::isnan(value));
    const std::string large = std::string(400, '9'), small = "0." + std::string(400, '0') + "1";
    EXPECT_EQ(ToReal(large.c_str()), kInfinity);
    EXPECT_EQ(ToReal(small.c_str()), 0);
    float single = 0;
    ReadReal("16777217.0000001", single);
    EXPECT_EQ(single, 16777218.0f) << "rounded once, not first to a double";
    ReadReal("1e39", single);
    EXPECT_EQ(single, std::numeric_limits<float>::infinity());
}

TEST(Numbers, WritesLikeTheRuntimeInTheCLocale) {
    const CommaLocale locale;
    EXPECT_EQ(RealText(2.5), "2.500000");
    EXPECT_EQ(RealText(2.5, 0), "2") << "rounded to even";
    EXPECT_EQ(RealText(-1e-9), "-0.000000");
    EXPECT_EQ(RealText(1.0 / 3, 20), "0.33333333333333331483");
    EXPECT_EQ(RealText(1, -1), "1.000000");
    EXPECT_EQ(RealText(std::nan("")), "nan");
    EXPECT_EQ(RealText(-kInfinity), "-inf");
    EXPECT_EQ(RealText(-1e308).size(), 317u);
    EXPECT_EQ(RealText(-1e308).substr(0, 20), "-1000000000000000010");
    EXPECT_EQ(RealText(1, 10000), "1." + std::string(8190, '0'));
    char buffer[] = "########";
    EXPECT_EQ(WriteReal(buffer, 8, 9.75, 6), 8u);
    EXPECT_EQ(std::string(buffer), "9.750000");
    EXPECT_EQ(WriteReal(buffer, 7, 9.75, 6), 0u);
}

}  // namespace
