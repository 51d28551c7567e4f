// Files that a run leaves, and the console.
#pragma once

#include <string>
#include <vector>

namespace bench {

// Makes the folder with its parents. An empty text on success, otherwise a sentence.
std::string MakeFolder(const std::string& folder);
std::string WriteText(const std::string& file, const std::string& text);
std::string JoinLines(const std::vector<std::string>& lines);

// Sets the console to UTF-8 and the lines on it to the system's ends: under Wine they have no carriage return.
void SetUpConsole();
void Say(const std::string& text);

// A path as the person at the console writes it: under Wine the Unix path, on Windows the path itself.
std::string ShownPath(const std::string& path);

}  // namespace bench
