// Where a name leads.
#pragma once

#include <filesystem>

namespace tarveth::platform {

// The file that a write to this name would reach: a rename onto a link would replace the link itself.
std::filesystem::path FollowLinks(std::filesystem::path file);

} // namespace tarveth::platform
