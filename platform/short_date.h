// Dates as the system's user writes them.
#pragma once

#include <string>

namespace tarveth::platform {

// Today in the system's short form, such as "11/22/2026". UTF-8.
std::string ShortDate();

} // namespace tarveth::platform
