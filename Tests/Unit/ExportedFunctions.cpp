// What other programs find in the real module by name.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>

#include "ModuleNames.h"

namespace {

const void* Exported(const char* name) {
    return reinterpret_cast<const void*>(GetProcAddress(GetModuleHandleA(kModuleFileName), name));
}

// The bytes of an exported constant.
std::string Constant(const char* name, size_t size) {
    const void* const place = Exported(name);
    return place ? std::string(static_cast<const char*>(place), size) : "not exported";
}

}  // namespace

TEST(ExportedFunctions, AreCalledByName) {
    const auto field = reinterpret_cast<const char* (*)(char*, const char*, char, int32_t, int32_t)>(
        const_cast<void*>(Exported("gwgetsubstring")));
    ASSERT_TRUE(field);
    const char* const source = "a;b;c";
    char text[8] = "######";
    EXPECT_EQ(field(text, source, ';', 1, 8), source + 4);
    EXPECT_STREQ(text, "b");
}

TEST(ExportedFunctions, MarkersHaveTheirBits) {
    EXPECT_EQ(Constant("NULLBYTE", 1), "\x80");
    EXPECT_EQ(Constant("NULLSHORT", 2), std::string("\x00\x80", 2));
    EXPECT_EQ(Constant("NULLLONG", 4), std::string("\x00\x00\x00\x08", 4));
    EXPECT_EQ(Constant("NULLFLOAT", 4), "\x9E\xC9\x7F\xFF");
    const double number = -1.7E+38;
    EXPECT_EQ(Constant("NULLDOUBLE", 8), std::string(reinterpret_cast<const char*>(&number), 8));
}
