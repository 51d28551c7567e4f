#include "Util/PDialogControlLists.h"

#include <cstring>

namespace {

// The messages by which the two kinds of control differ.
struct ListMessages {
    UINT clear;
    UINT add;
    UINT setData;
    UINT select;
    UINT getSelected;
    UINT getData;
};
constexpr ListMessages kComboBox = {CB_RESETCONTENT, CB_ADDSTRING, CB_SETITEMDATA,
                                    CB_SETCURSEL,    CB_GETCURSEL, CB_GETITEMDATA};
constexpr ListMessages kListBox = {LB_RESETCONTENT, LB_ADDSTRING, LB_SETITEMDATA,
                                   LB_SETCURSEL,    LB_GETCURSEL, LB_GETITEMDATA};

LPARAM BitsOf(float value) {
    uint32_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return static_cast<LPARAM>(bits);
}

float ValueOf(LRESULT data) {
    const uint32_t bits = static_cast<uint32_t>(data);
    float value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

constexpr const ListMessages& MessagesOf(ListKind kind) {
    return kind == ListKind::kComboBox ? kComboBox : kListBox;
}

}  // namespace

template <ListKind kKind>
int PDialogControlList<kKind>::ToDialog() {
    constexpr const ListMessages& kMessages = MessagesOf(kKind);
    PDialogControl::ToDialog();
    Send(kMessages.clear, 0, 0);
    if (!list_ || !*list_) return -1;
    bool selected = false;
    for (const ComboListItem* item = *list_; item->value != NULLFLOAT && *item->text; ++item) {
        const LRESULT index = Send(kMessages.add, 0, reinterpret_cast<LPARAM>(item->text));
        if (index < 0) continue;
        Send(kMessages.setData, static_cast<WPARAM>(index), BitsOf(item->value));
        if (!selected_ || item->value != *selected_) continue;
        Send(kMessages.select, static_cast<WPARAM>(index), 0);
        selected = true;
    }
    // The combo box's message for both kinds on purpose: a list box without a match has no selection.
    if (!selected) Send(CB_SETCURSEL, 0, 0);
    FreeComboListData(list_);
    return 0;
}

template <ListKind kKind>
int PDialogControlList<kKind>::FromDialog() {
    constexpr const ListMessages& kMessages = MessagesOf(kKind);
    if (!selected_) return -1;
    const LRESULT index = Send(kMessages.getSelected, 0, 0);
    if (index == -1) return 0;
    const LRESULT data = Send(kMessages.getData, static_cast<WPARAM>(index), 0);
    if (data != -1) *selected_ = ValueOf(data);
    return 0;
}

template class PDialogControlList<ListKind::kComboBox>;
template class PDialogControlList<ListKind::kListBox>;
