// Formats dates in the user's locale.
#pragma once

#include <string>

namespace tarveth::platform {

// Gives today's date in the system's short form, such as "11/22/2026", in UTF-8.
std::string ShortDate();

} // namespace tarveth::platform
