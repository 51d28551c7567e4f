// Writes a run's files and the console output.
#pragma once

#include <string>

namespace bench {

// Creates the folder and its parents. Returns an empty string on success, otherwise a sentence.
std::string MakeFolder(const std::string& folder);
std::string WriteText(const std::string& file, const std::string& text);

// Sets the console to UTF-8 and selects the system's line ends: under Wine without carriage return.
void SetUpConsole();
void Say(const std::string& text);

// Returns the path as a user types it: the Unix path under Wine, unchanged on Windows.
std::string DisplayPath(const std::string& path);

}  // namespace bench
