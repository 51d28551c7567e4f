#include "Util/TextConverter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ImportPatch.h"
#include "Util/ComTypes.h"

namespace {

std::vector<DWORD> askedFlags;
int(WINAPI* original)(UINT, DWORD, LPCSTR, int, LPWSTR, int);

int WINAPI RecordFlags(UINT codePage, DWORD flags, LPCSTR text, int length, LPWSTR wide, int size) {
    askedFlags.push_back(flags);
    return original(codePage, flags, text, length, wide, size);
}

}  // namespace

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
        {850, "\x8Fngstr\x94m", L"\u00C5ngstr\u00F6m"},
        {932, "\x8F\xC1\x89\xB9", L"\u6D88\u97F3"},
    };
    for (const auto& c : cases) {
        TextConverter converter;
        EXPECT_EQ(converter.ToWide(c.narrow, c.codePage), c.wide) << c.codePage;
        EXPECT_EQ(converter.capacity(), std::wstring(c.wide).size() + 1) << c.codePage;
        EXPECT_STREQ(converter.ToNarrow(c.codePage), c.narrow) << c.codePage;
    }
}

// Windows refuses precomposition with UTF-8, Wine lets it pass.
TEST(TextConverter, AsksForPrecomposedCharactersButOfUtf8) {
    askedFlags.clear();
    const ImportPatch patch("MultiByteToWideChar", RecordFlags);
    original = patch.original<decltype(RecordFlags)>();
    TextConverter converter;
    converter.ToWide("duct", CP_UTF8);
    converter.ToWide("duct", 1252);
    EXPECT_EQ(askedFlags, (std::vector<DWORD>{0, 0, MB_PRECOMPOSED, MB_PRECOMPOSED}));
}

TEST(TextConverter, Utf8IsTheDefault) {
    TextConverter converter;
    EXPECT_EQ(converter.ToWide("\xC3\xA4"), L"\u00E4");
    EXPECT_STREQ(converter.ToNarrow(), "\xC3\xA4");
    EXPECT_STREQ(converter.ToNarrow(1252), "\xE4");
}

TEST(TextConverter, ReservingKeepsWhatFitsAndDropsTheNarrowCopy) {
    TextConverter converter;
    converter.ToWide("silencer");
    converter.ToNarrow();
    EXPECT_TRUE(converter.hasNarrowCopy());
    converter.Reserve(20);
    EXPECT_FALSE(converter.hasNarrowCopy());
    EXPECT_EQ(converter.capacity(), 20u);
    EXPECT_STREQ(converter.ToNarrow(), "silencer");
    converter.Reserve(3);
    EXPECT_STREQ(converter.ToNarrow(), "sil");
    const TextConverter copy = converter;
    converter.ToWide("other");
    EXPECT_EQ(TextConverter(copy).ToNarrow(), std::string("sil")) << "a copy has buffers of its own";
}

TEST(TextConverter, ABstrHasTheWholeBuffer) {
    TextConverter converter;
    converter.ToWide("duct");
    BStr text;
    *text.put() = converter.ToBstr();
    ASSERT_EQ(SysStringLen(text.get()), 5u);
    EXPECT_EQ(std::wstring(text.get(), 5), std::wstring(L"duct\0", 5));
}

TEST(TextConverter, WhatCannotBeConvertedIsEmpty) {
    TextConverter converter;
    converter.ToWide("kept");
    EXPECT_EQ(converter.ToWide("text", 64999), L"") << "no such code page";
    EXPECT_EQ(converter.ToWide(nullptr), L"");
    EXPECT_STREQ(converter.ToNarrow(), "");
    EXPECT_STREQ(TextConverter().ToNarrow(), "");
}
