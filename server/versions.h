// Reads the versions of clients.
#pragma once

#include <optional>
#include <string_view>

namespace tarveth {

// Gives major * 10,000 + minor * 1,000 + revision, by which versions are compared. A missing part counts 0.
// Gives nothing if the text is no version.
std::optional<int> VersionNumber(std::string_view version);

} // namespace tarveth
