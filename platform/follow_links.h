// Follows symbolic links.
#pragma once

#include <filesystem>

namespace tarveth::platform {

// Gives the file that a write to this name would change. A file that is replaced by a rename needs it, since
// a rename onto a link would replace the link.
std::filesystem::path FollowLinks(std::filesystem::path file);

} // namespace tarveth::platform
