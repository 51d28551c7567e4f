#include "Util/KLUtils_Text.h"

#include <algorithm>
#include <vector>

#include "CommaLocale.h"
#include "gtest/gtest.h"

using Texts = std::vector<std::string>;

TEST(KLUtilsText, KeepsEmptyPartsWhenSplitting) {
    const struct {
        const char *text, *delimiter;
        Texts parts;
    } cases[] = {
        {"a b c", " ", {"a", "b", "c"}}, {"a  c", " ", {"a", "", "c"}}, {" a ", " ", {"", "a", ""}}, {"", " ", {}},
        {"a::b:c", "::", {"a", "b:c"}},  {"abc", "", {"abc"}},
    };
    for (const auto& one : cases)
        EXPECT_EQ(KLUtils::Split(one.text, one.delimiter), one.parts) << one.text;
}

TEST(KLUtilsText, ReadsNumbers) {
    const CommaLocale locale;
    const struct {
        const char* text;
        int count, result;
        std::vector<double> numbers;
    } cases[] = {
        {"1 2.5 x 4", 3, 3, {1, 2.5, 0}},
        {"1 2.5 x 4", 9, 4, {1, 2.5, 0, 4}},
        {"-1e3", 1, 1, {-1000}},
        {"1  2", 3, 3, {1, 0, 2}},
        {"", 2, 0, {}},
        {"12abc 7", 2, 2, {12, 7}},
        {nullptr, 3, -1, {}},
        {"1", 0, -3, {}},
    };
    for (const auto& one : cases) {
        std::vector<double> numbers(10, -99), expected = one.numbers;
        expected.resize(10, -99);
        EXPECT_EQ(KLUtils::ParseNumbers(one.text, numbers.data(), one.count), one.result);
        EXPECT_EQ(numbers, expected);
    }
    EXPECT_EQ(KLUtils::ParseNumbers("1", nullptr, 1), -2);
}

TEST(KLUtilsText, WritesNumbers) {
    const CommaLocale locale;
    const double numbers[] = {1, -2.5, 0.0049};
    EXPECT_EQ(KLUtils::FormatNumbers(numbers, 3, 2), "1.00 -2.50 0.00");
    EXPECT_EQ(KLUtils::FormatNumbers(numbers, 1, 0), "1");
    EXPECT_EQ(KLUtils::FormatNumbers(numbers, 0, 2), "");
    EXPECT_EQ(KLUtils::FormatNumbers(nullptr, 3, 2), "");
}

TEST(KLUtilsText, ConvertsMatricesBothWays) {
    AcGeMatrix3d matrix;
    for (int i = 0; i < 16; ++i)
        matrix.entry[i / 4][i % 4] = i + 0.125;
    const std::string text = KLUtils::MatrixToText(matrix);
    EXPECT_EQ(text.substr(0, 57), "0.1250000000000000 1.1250000000000000 2.1250000000000000 ");
    AcGeMatrix3d read;
    EXPECT_TRUE(KLUtils::MatrixFromText(text.c_str(), read));
    // Too few numbers change nothing.
    EXPECT_FALSE(KLUtils::MatrixFromText("9 9 9 9 9 9 9 9 9 9 9 9 9 9 9", read));
    EXPECT_FALSE(KLUtils::MatrixFromText(nullptr, read));
    EXPECT_TRUE(std::equal(&matrix.entry[0][0], &matrix.entry[0][0] + 16, &read.entry[0][0]));
}
