// While an object exists, the C runtime and the C++ streams write a decimal comma and group digits, as another plug-in
// may have set them to.
#pragma once

#include <gtest/gtest.h>

#include <clocale>
#include <locale>
#include <string>

class CommaLocale {
 public:
    CommaLocale() { EXPECT_NE(std::setlocale(LC_ALL, "German"), nullptr); }
    ~CommaLocale() {
        std::locale::global(before_);
        std::setlocale(LC_ALL, "C");
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

 private:
    struct GermanNumbers : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };

    const std::locale before_ = std::locale::global(std::locale(std::locale::classic(), new GermanNumbers));
};
