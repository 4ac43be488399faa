// Versions of clients, as one number each.
#pragma once

#include <optional>
#include <string_view>

namespace tarveth {

// major * 10,000 + minor * 1,000 + revision, by which versions are compared; a part that is missing is 0.
// Nothing if the text is no version.
std::optional<int> VersionNumber(std::string_view version);

} // namespace tarveth
