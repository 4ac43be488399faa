// Converts the program's UTF-8 texts to std::filesystem::path. The path's own constructor would not take a
// std::string for UTF-8 on Windows. The other way, path::string(), is right on every system.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tarveth::platform {

// On Windows, throws std::filesystem::filesystem_error for a text that is not valid UTF-8.
inline std::filesystem::path PathFromText(std::string_view text) {
    return std::u8string(text.begin(), text.end());
}

} // namespace tarveth::platform
