// Saves a picture of a window, with frame and caption as on the screen, as a PNG file.
#pragma once

#include <windows.h>

#include <string>

namespace bench {

// Returns an empty string on success, otherwise a sentence. The file's folder must exist; an existing file is replaced.
std::string SavePictureOf(HWND window, const std::string& file);

}  // namespace bench
