// Tells whether a file exists.
#pragma once

#include <string>

namespace tarveth::platform {

// True for a regular file or a link to one; false for a folder, for an empty name, and when the name cannot
// be looked up.
bool FileExists(const std::string& name);

} // namespace tarveth::platform
