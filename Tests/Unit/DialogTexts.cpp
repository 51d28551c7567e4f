#include <windows.h>
#include <gtest/gtest.h>
#include <cstring>
#include <string>

#include "Util/DlgFunc_Text.h"

TEST(DialogTexts, FieldsOfASeparatedText) {
    const struct {
        const char* source;
        char separator;
        int index, size;
        const char* field;
        int next;  // offset of the returned position, -1 for null
    } cases[] = {
        {"a;b;c", ';', 1, 10, "b", 4},
        {"a;b;c", ';', 2, 10, "c", 5},
        {"a;b;c", ';', 3, 10, "", -1},
        {"a;b;c;", ';', 3, 10, "", -1},
        {"a;;c", ';', 1, 10, "", 3},
        {"width;height", ';', 0, 4, "wid", 6},
        {"width;height", ';', 0, 6, "width", 6},
        {"width", ';', 0, 1, "", 5},
        {"a;b", '\0', 0, 10, "a;b", 3},
        {"a;b", ';', -1, 10, "", -1},
        {"a;b", ';', 0, 0, "", -1},
        {nullptr, ';', 0, 10, "", -1},
    };
    for (const auto& c : cases) {
        char field[16];
        std::memset(field, '#', sizeof field);
        const char* next = gwgetsubstring(field, c.source, c.separator, c.index, c.size);
        EXPECT_STREQ(field, c.field) << c.index << " of " << (c.source ? c.source : "null");
        EXPECT_EQ(next ? static_cast<int>(next - c.source) : -1, c.next) << c.index << " of " << c.field;
        EXPECT_EQ(field[std::strlen(c.field) + 1], '#') << "written beyond the terminator";
    }
}

TEST(DialogTexts, TrailingBlanksBecomeTerminators) {
    const std::pair<std::string, std::string> cases[] = {
        {"900 \r\n ", std::string("900\0\0\0\0", 7)},
        {"9 0\t ", std::string("9 0\t\0", 5)},
        {" \r\n", std::string(3, '\0')},
        {std::string("a\0b \0", 5), std::string("a\0b\0\0", 5)},
        {"", ""},
    };
    for (const auto& [before, after] : cases) {
        std::string text = before + "!";
        EXPECT_EQ(TrimTrailingBlanks(text.data(), static_cast<int>(before.size())), text.data());
        EXPECT_EQ(text, after + "!");
    }
}

TEST(DialogTexts, NumbersAreHeldWithinBounds) {
    const struct {
        const char* before;
        double minimum, maximum;
        bool replaced;
        const char* after;
    } cases[] = {
        {"12.7", 0, 10, true, "10"},          {"-3", 0, 10, true, "0"},
        {"10", 0, 10, false, "10"},           {"0", 0, 10, false, "0"},
        {"7.25 mm", 0, 10, false, "7.25 mm"}, {"none", 5, 10, true, "5"},
        {"9", 9.6, 20, true, "10"},           {"1e9", -1e6, 1e6, true, "1000000"},
    };
    for (const auto& c : cases) {
        char text[32] = "";
        std::strcpy(text, c.before);
        EXPECT_EQ(ClampNumberText(text, c.minimum, c.maximum), c.replaced) << c.before;
        EXPECT_STREQ(text, c.after);
    }
    EXPECT_FALSE(ClampNumberText(nullptr, 1, 2));
}

TEST(DialogTexts, FiltersEndWithTwoTerminators) {
    const auto seen = [](const char* filter) {
        const std::string parts = OpenFileFilter(filter);
        return std::string(parts.c_str(), parts.size() + 1);
    };
    EXPECT_EQ(seen("Products|*.kpd|"), std::string("Products\0*.kpd\0\0\0", 17));
    EXPECT_EQ(seen("Products|*.kpd"), std::string("Products\0*.kpd\0\0", 16));
    EXPECT_EQ(seen(nullptr), std::string("\0\0", 2));
}
