#include "Util/ComboListData.h"

#include <cstdint>
#include <cstring>

#include "DiagnosticsFixture.h"
#include "Util/ExportedMemory.h"

namespace {

using ComboListDataTest = ErrorReportsTest;

}  // namespace

TEST_F(ComboListDataTest, InsertsItemsBeforeTheEndMarker) {
    // An empty list in memory that is not zero.
    constexpr uint32_t kBytes = 3 * sizeof(ComboListItem);
    ComboListData list = static_cast<ComboListData>(gwGmalloc(kBytes, 0));
    std::memset(list, '#', kBytes);
    list[0].value = NULLFLOAT;
    EXPECT_EQ(InsertComboListDataItem(&list, 0.1, "thin"), 0);
    EXPECT_EQ(list[1].value, NULLFLOAT);
    EXPECT_STREQ(list[1].text, "");
    EXPECT_EQ(InsertComboListDataItem(&list, -2, std::string(200, 'x').c_str()), 0);
    EXPECT_EQ(InsertComboListDataItem(&list, 3, ""), 0);
    EXPECT_EQ(InsertComboListDataItem(&list, 4, nullptr), 0);
    ASSERT_TRUE(list);
    const struct {
        float value;
        std::string text;
    } expected[] = {{0.1F, "thin"}, {-2, std::string(127, 'x')}, {3, " "}, {4, " "}, {NULLFLOAT, ""}};
    for (size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(list[i].value, expected[i].value) << i;
        EXPECT_EQ(list[i].text, expected[i].text) << i;
    }
    const char zeros[128] = {};
    EXPECT_EQ(std::memcmp(list[0].text + 4, zeros, 124), 0) << "the item is cleared";
    uint32_t end = 0;
    std::memcpy(&end, &list[4].value, sizeof end);
    EXPECT_EQ(end, 0xFF7FC99Eu);
    FreeComboListData(&list);
    EXPECT_EQ(list, nullptr);
    FreeComboListData(&list);
    FreeComboListData(nullptr);
}

TEST_F(ComboListDataTest, ReportsAMissingList) {
    EXPECT_EQ(InsertComboListDataItem(nullptr, 1, "one"), -1);
    EXPECT_EQ(LogLines(),
              Line("InsertComboListDataItem", "Wrong parameter ComboListData == NULL", "Util/ComboListData#84"));
}
