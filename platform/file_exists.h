// Is there a file of that name?
#pragma once

#include <string>

namespace tarveth::platform {

// True for a plain file (or a link to one); false for a folder, an empty name and whatever cannot be looked
// up.
bool FileExists(const std::string& name);

} // namespace tarveth::platform
