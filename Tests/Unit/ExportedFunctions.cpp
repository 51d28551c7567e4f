// What other programs find in the real module by undecorated name.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>

#include "ClipboardFixture.h"
#include "ModuleNames.h"

namespace {

void* Exported(const char* name) {
    void* const address = reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA(kModuleFileName), name));
    EXPECT_TRUE(address) << name << " is not exported";
    return address;
}

template <class Function>
Function* ExportedFunction(const char* name) {
    return reinterpret_cast<Function*>(Exported(name));
}

template <class Value>
Value ExportedValue(const char* name) {
    const void* const address = Exported(name);
    Value value = {};
    if (address) std::memcpy(&value, address, sizeof value);
    return value;
}

using ExportedFunctions = ClipboardTest;

}  // namespace

TEST_F(ExportedFunctions, MarkersHaveTheirBits) {
    EXPECT_EQ(ExportedValue<uint8_t>("NULLBYTE"), 0x80);
    EXPECT_EQ(ExportedValue<int16_t>("NULLSHORT"), -32768);
    EXPECT_EQ(ExportedValue<int32_t>("NULLLONG"), 134217728);
    EXPECT_EQ(ExportedValue<uint32_t>("NULLFLOAT"), 0xFF7FC99Eu);
    EXPECT_EQ(ExportedValue<double>("NULLDOUBLE"), -1.7E+38);
}

TEST_F(ExportedFunctions, MemoryGoesRound) {
    const auto allocate = ExportedFunction<void*(uint32_t, int32_t)>("gwGmalloc");
    const auto reallocate = ExportedFunction<void*(void*, uint32_t, int32_t)>("gwGrealloc");
    const auto release = ExportedFunction<int(void*)>("gwGfree");
    const auto allocateGlobal = ExportedFunction<void*(uint32_t, HGLOBAL*)>("gwGmallocH");
    ASSERT_TRUE(allocate && reallocate && release && allocateGlobal);
    void* block = allocate(5, 10010);
    ASSERT_TRUE(block);
    std::memcpy(block, "duct", 5);
    block = reallocate(block, 5000, 10011);
    ASSERT_TRUE(block);
    EXPECT_STREQ(static_cast<const char*>(block), "duct");
    EXPECT_EQ(release(block), 0);
    HGLOBAL handle = nullptr;
    EXPECT_TRUE(allocateGlobal(8, &handle));
    EXPECT_TRUE(handle);
    GlobalUnlock(handle);
    GlobalFree(handle);
}

TEST_F(ExportedFunctions, FieldsAndClipboard) {
    const auto field = ExportedFunction<const char*(char*, const char*, char, int32_t, int32_t)>("gwgetsubstring");
    const auto has = ExportedFunction<int(const char*)>("gwclip_has_data");
    const auto copy = ExportedFunction<int(HWND, const char*, const char*, const void*, int32_t, bool)>("gwclip_copy");
    const auto paste = ExportedFunction<void*(HWND, const char*, char*, int32_t, int32_t*)>("gwclip_paste");
    const auto release = ExportedFunction<int(void*)>("gwGfree");
    ASSERT_TRUE(field && has && copy && paste && release);
    const char* source = "a;b;c";
    char text[8] = "######";
    EXPECT_EQ(field(text, source, ';', 1, 8), source + 4);
    EXPECT_STREQ(text, "b");
    EXPECT_EQ(copy(owner(), "SorvikUnitTest", text, "0123456789", 10, true), 0);
    EXPECT_EQ(has("SorvikUnitTest"), 1);
    int32_t size = -1;
    void* data = paste(owner(), "SorvikUnitTest", text, 1, &size);
    EXPECT_EQ(size, 10);
    ASSERT_TRUE(data);
    EXPECT_EQ(std::memcmp(data, "0123456789", 10), 0);
    EXPECT_STREQ(text, "");
    release(data);
}
