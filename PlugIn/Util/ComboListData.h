// Items for combo and list boxes: an array of values with texts that ends with an item of value NULLFLOAT and an empty
// text. It is reached through a handle, the address of the array's pointer, which is null while the list is empty. The
// array lies in memory of gwGmalloc; whoever holds the handle frees it, unless a dialog control has consumed it.
#pragma once

#include "Util/NullMarkers.h"

struct ComboListItem {
    float value;
    char text[128];  // terminated
};
static_assert(sizeof(ComboListItem) == 132, "an item's layout is fixed");

using ComboListData = ComboListItem*;

// Appends an item before the end; an empty or missing text becomes one blank, a long one is cut to 127 characters. 0;
// -1 without a list (reported) or without memory, which leaves the list as it is.
int InsertComboListDataItem(ComboListData* list, double value, const char* text);

// Releases the array and empties the handle; takes null and empty handles.
void FreeComboListData(ComboListData* list);
