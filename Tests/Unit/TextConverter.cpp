#include "Util/TextConverter.h"

#include <gtest/gtest.h>

#include "RecordedCalls.h"
#include "Util/ComTypes.h"

TEST(TextConverter, ConvertsBothWaysInSeveralCodePages) {
    const struct {
        UINT codePage;
        const char* narrow;
        const wchar_t* wide;
    } cases[] = {
        {CP_UTF8, "\xC3\x85ngstr\xC3\xB6m \xE2\x82\xAC", L"\u00C5ngstr\u00F6m \u20AC"},
        {CP_UTF8, "\xF0\x9F\x94\x87", L"\xD83D\xDD07"},
        {CP_UTF8, "", L""},
        {1252, "\xC5ngstr\xF6m \x80", L"\u00C5ngstr\u00F6m \u20AC"},
        {1251, "\xD8\xF3\xEC", L"\u0428\u0443\u043C"},
        {1250, "\xA3", L"\u0141"},
        {932, "\x8F\xC1\x89\xB9", L"\u6D88\u97F3"},
    };
    for (const auto& c : cases) {
        TextConverter converter;
        EXPECT_EQ(converter.ToWide(c.narrow, c.codePage), c.wide) << c.codePage;
        EXPECT_STREQ(converter.ToNarrow(c.codePage), c.narrow) << c.codePage;
    }
}

// Windows rejects MB_PRECOMPOSED with UTF-8; Wine accepts it.
TEST(TextConverter, RequestsPrecomposedCharactersExceptInUtf8) {
    TextConverter converter;
    RecordedCalls calls;
    calls.Record("MultiByteToWideChar", MultiByteToWideChar);
    converter.ToWide("duct", CP_UTF8);
    converter.ToWide("duct", 1252);
    EXPECT_EQ(calls.Take(),
              "MultiByteToWideChar 0xFDE9 0x0 \"duct\" -1 null 0\nMultiByteToWideChar 0xFDE9 0x0 \"duct\" -1 & 5\n"
              "MultiByteToWideChar 0x4E4 0x1 \"duct\" -1 null 0\nMultiByteToWideChar 0x4E4 0x1 \"duct\" -1 & 5\n");
}

TEST(TextConverter, DefaultsToUtf8) {
    TextConverter converter;
    EXPECT_EQ(converter.ToWide("\xC3\xA4"), L"\u00E4");
    EXPECT_STREQ(converter.ToNarrow(), "\xC3\xA4");
    EXPECT_STREQ(converter.ToNarrow(1252), "\xE4");
    EXPECT_STREQ(converter.ToNarrow(), "\xC3\xA4") << "the code page applies to one call";
    EXPECT_EQ(converter.ToWide("\xE4", 1252), L"\u00E4");
    EXPECT_EQ(converter.ToWide("\xC3\xA4"), L"\u00E4");
}

TEST(TextConverter, KeepsWhatFitsWhenReserving) {
    TextConverter converter;
    converter.ToWide("silencer");
    converter.Reserve(20);
    EXPECT_STREQ(converter.ToNarrow(), "silencer");
    BStr text;
    *text.put() = converter.ToBstr();
    ASSERT_EQ(SysStringLen(text.get()), 20u) << "the whole buffer";
    EXPECT_EQ(std::wstring(text.get(), 10), std::wstring(L"silencer\0\0", 10));
    converter.Reserve(3);
    EXPECT_STREQ(converter.ToNarrow(), "sil");
    *text.put() = converter.ToBstr();
    EXPECT_EQ(SysStringLen(text.get()), 3u);
    converter.ToWide("duct");
    *text.put() = converter.ToBstr();
    EXPECT_EQ(SysStringLen(text.get()), 5u) << "with the terminator";
}

TEST(TextConverter, ReturnsAnEmptyStringWhenConversionFails) {
    TextConverter converter;
    converter.ToWide("kept");
    EXPECT_EQ(converter.ToWide("text", 64999), L"") << "no such code page";
    EXPECT_EQ(converter.ToWide(nullptr), L"");
    EXPECT_STREQ(converter.ToNarrow(), "");
    EXPECT_STREQ(TextConverter().ToNarrow(), "");
}

TEST(TextConverter, ReplacesCharactersThatTheCodePageLacks) {
    TextConverter converter;
    converter.ToWide("\xC5\x81\xE6\xB6\x88");
    EXPECT_STREQ(converter.ToNarrow(1252), "L?");
}
