// Tells whether files exist, and in which of several folders.
#pragma once

#include <string>
#include <vector>

namespace tarveth::platform {

// True for a regular file or a link to one; false for a folder, for an empty name, and when the name cannot
// be looked up.
bool FileExists(const std::string& name);

// Gives the path of the file in the first of the folders (with trailing separators) that has one of that
// relative name; empty when none has.
std::string FindInFolders(const std::string& name, const std::vector<std::string>& folders);

} // namespace tarveth::platform
