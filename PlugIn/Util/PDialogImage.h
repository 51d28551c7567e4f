// Required library; nothing in this module calls it.
// Owns the bitmap or icon that a dialog control shows: controls do not free their images. The image comes from the file
// of its name or, when there is no such file, from the module's resources.
#pragma once

#include <windows.h>

#include <string>

#include "Lib/Handles.h"

class PDialogImage {
 public:
    // Deletes the previous image and loads another; `type` is IMAGE_BITMAP or IMAGE_ICON. Returns null on failure.
    HANDLE Load(const std::string& name, UINT type);

 private:
    Owner<HBITMAP, DeleteObject> bitmap_;
    Owner<HICON, DestroyIcon> icon_;
};
