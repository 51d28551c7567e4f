#include "Util/PDialogImage.h"

#include "Lib/ModuleIdentity.h"

HANDLE PDialogImage::Load(const std::string& name, UINT type) {
    bitmap_.reset();
    icon_.reset();
    const DWORD attributes = GetFileAttributesA(name.c_str());
    const bool isFile = attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
    const HANDLE image = LoadImageA(isFile ? nullptr : ModuleHandle(), name.c_str(), type, 0, 0,
                                    LR_LOADMAP3DCOLORS | (isFile ? LR_LOADFROMFILE : 0u));
    if (type == IMAGE_ICON)
        icon_.reset(static_cast<HICON>(image));
    else
        bitmap_.reset(static_cast<HBITMAP>(image));
    return image;
}
