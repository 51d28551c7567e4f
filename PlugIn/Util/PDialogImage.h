// The bitmap or icon that a dialog control shows. It is loaded from the file of its name or, when there is no such
// file, from the module's resources; it is owned here, for controls do not free what they are given.
#pragma once

#include <windows.h>

#include <string>

#include "Lib/Handles.h"

class PDialogImage {
 public:
    // `type` is IMAGE_BITMAP or IMAGE_ICON. The image held before is deleted. Null when nothing could be loaded.
    HANDLE Load(const std::string& name, UINT type);

 private:
    Owner<HBITMAP, DeleteObject> bitmap_;
    Owner<HICON, DestroyIcon> icon_;
};
