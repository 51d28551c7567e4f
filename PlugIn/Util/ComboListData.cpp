#include "Util/ComboListData.h"

#include <cstdint>

#include "Lib/Diagnostics.h"
#include "Lib/Text.h"
#include "Util/ExportedMemory.h"

namespace {

size_t CountItems(const ComboListItem* items) {
    size_t count = 0;
    while (items && items[count].value != NULLFLOAT)
        ++count;
    return count;
}

}  // namespace

int InsertComboListDataItem(ComboListData* list, double value, const char* text) {
    if (!list) {
        ReportErrorAndBreak("Wrong parameter ComboListData == NULL", "PlugIn/Util/ComboListData", 84,
                            "InsertComboListDataItem");
        return -1;
    }
    const size_t count = CountItems(*list);
    const uint32_t bytes = static_cast<uint32_t>((count + 2) * sizeof(ComboListItem));
    void* const block = *list ? gwGrealloc(*list, bytes, 0) : gwGmalloc(bytes, 0);
    if (!block) return -1;
    *list = static_cast<ComboListItem*>(block);

    ComboListItem& item = (*list)[count];
    item = {};
    item.value = static_cast<float>(value);
    CopyTruncated(item.text, sizeof item.text, IsNullOrEmpty(text) ? " " : text);
    (*list)[count + 1] = {};
    (*list)[count + 1].value = NULLFLOAT;
    return 0;
}

void FreeComboListData(ComboListData* list) {
    if (!list) return;
    gwGfree(*list);
    *list = nullptr;
}
