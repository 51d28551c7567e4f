// Required library; nothing in this module calls it.
// Items for combo and list boxes: an array of values with texts, ended by an item of value NULLFLOAT and an empty text.
// A list is passed as the address of the array's pointer, which is null while the list is empty. The array is allocated
// with gwGmalloc; the owner of the pointer frees it, unless a dialog control has consumed it.
#pragma once

#include "Util/NullMarkers.h"

struct ComboListItem {
    float value;
    char text[128];  // terminated
};
static_assert(sizeof(ComboListItem) == 132, "an item's layout is fixed");

using ComboListData = ComboListItem*;

// Appends an item. An empty or null text becomes one blank; a long one is truncated to 127 characters. Returns 0, or -1
// without a list (reported) or when memory runs out; the list is unchanged then.
int InsertComboListDataItem(ComboListData* list, double value, const char* text);

// Frees the array and sets its pointer to null. Accepts null and an empty list.
void FreeComboListData(ComboListData* list);
