set(SORVIK_DIALOG_TESTS
  Clipboard.cpp
  ComboListData.cpp
  DialogControls.cpp
  DialogImages.cpp
  DialogMessages.cpp
  DialogTexts.cpp
  DrawModel.cpp
  ExportedFunctions.cpp
  GlobalMemory.cpp
  TextConverter.cpp
  WindowHelpers.cpp)

# The other side of the clipboard, in a process of its own.
add_executable(clipboard_peer ClipboardPeer.cpp)
target_link_libraries(clipboard_peer PRIVATE sorvik_warnings)
