// The program's texts as the standard library's paths. A std::string that is turned into one by itself would
// be taken for something else than UTF-8 on Windows; the way back, string(), is right everywhere.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tarveth::platform {

// Throws std::filesystem::filesystem_error for a text that is no UTF-8, on Windows only.
inline std::filesystem::path PathFromText(std::string_view text) {
    return std::u8string(text.begin(), text.end());
}

} // namespace tarveth::platform
