// Pictures of windows, for people: the window with its frame and caption as the screen shows it, as a PNG file.
#pragma once

#include <windows.h>

#include <string>

namespace bench {

// An empty text on success, otherwise a sentence. Parents of the file must exist; an existing file is replaced.
std::string SavePictureOf(HWND window, const std::string& file);

}  // namespace bench
