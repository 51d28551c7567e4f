#include "Util/PDialogControlLists.h"

#include <cstring>

namespace {

// The same work in both kinds of control goes by these messages.
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

int Fill(HWND window, const ListMessages& messages, ComboListData* list, const float* wanted) {
    SendMessageA(window, messages.clear, 0, 0);
    if (!list || !*list) return -1;
    bool selected = false;
    for (const ComboListItem* item = *list; item->value != NULLFLOAT && *item->text; ++item) {
        const LRESULT index = SendMessageA(window, messages.add, 0, reinterpret_cast<LPARAM>(item->text));
        if (index < 0) continue;
        SendMessageA(window, messages.setData, static_cast<WPARAM>(index), BitsOf(item->value));
        if (!wanted || item->value != *wanted) continue;
        SendMessageA(window, messages.select, static_cast<WPARAM>(index), 0);
        selected = true;
    }
    // The combo box's message for both kinds: a list box without a match shows no selection, and dialogs count on it.
    if (!selected) SendMessageA(window, CB_SETCURSEL, 0, 0);
    FreeComboListData(list);
    return 0;
}

int Read(HWND window, const ListMessages& messages, float* selected) {
    if (!selected) return -1;
    const LRESULT index = SendMessageA(window, messages.getSelected, 0, 0);
    if (index == -1) return 0;
    const LRESULT data = SendMessageA(window, messages.getData, static_cast<WPARAM>(index), 0);
    if (data != -1) *selected = ValueOf(data);
    return 0;
}

}  // namespace

PDialogControlComboBox::PDialogControlComboBox(HWND window, ControlState state, const std::string& tooltip,
                                               ComboListData* list, float* selected)
    : PDialogControl(window, state, tooltip), list_(list), selected_(selected) {}

int PDialogControlComboBox::ToDialog() {
    PDialogControl::ToDialog();
    return Fill(window(), kComboBox, list_, selected_);
}

int PDialogControlComboBox::FromDialog() {
    return Read(window(), kComboBox, selected_);
}

PDialogControlListBox::PDialogControlListBox(HWND window, ControlState state, const std::string& tooltip,
                                             ComboListData* list, float* selected)
    : PDialogControl(window, state, tooltip), list_(list), selected_(selected) {}

int PDialogControlListBox::ToDialog() {
    PDialogControl::ToDialog();
    return Fill(window(), kListBox, list_, selected_);
}

int PDialogControlListBox::FromDialog() {
    return Read(window(), kListBox, selected_);
}
