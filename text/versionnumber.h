// Versions as one number each, by which they are compared.
#pragma once

#include <optional>
#include <string_view>

namespace tarveth {

enum class VersionForm {
    Exact,  // whole numbers from 0 to 9999, with or without blanks around each
    Leading // the number that each part begins with, 0 where there is none, at most what 16 bits hold
};

// major * 10,000 + minor * 1,000 + revision of "major.minor.revision". A part that is missing is 0, and parts
// behind the third are passed over. Nothing if a part is not of the exact form where that is asked for.
std::optional<int> VersionNumber(std::string_view version, VersionForm form = VersionForm::Exact);

} // namespace tarveth
