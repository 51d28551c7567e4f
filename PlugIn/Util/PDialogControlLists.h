// Required library; nothing in this module calls it.
// Binders of combo boxes and list boxes to a value chosen from a list. ToDialog fills the control, frees the list's
// array and sets its pointer to null; it returns -1 without a list. FromDialog sets the variable to the value of the
// selected item, and leaves it unchanged when none is selected.
#pragma once

#include "Util/ComboListData.h"
#include "Util/PDialogControl.h"

enum class ListKind { kComboBox, kListBox };

template <ListKind kKind>
class PDialogControlList : public PDialogControl {
 public:
    PDialogControlList(HWND window, ControlState state, const std::string& tooltip, ComboListData* list,
                       float* selected)
        : PDialogControl(window, state, tooltip), list_(list), selected_(selected) {}
    int ToDialog() override;
    int FromDialog() override;

 private:
    ComboListData* list_;
    float* selected_;
};

using PDialogControlComboBox = PDialogControlList<ListKind::kComboBox>;
using PDialogControlListBox = PDialogControlList<ListKind::kListBox>;
