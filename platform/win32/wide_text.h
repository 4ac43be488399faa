// The program's texts (UTF-8) and the system's: wide ones, and those in its code page.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarveth::platform {

// What is no UTF-8 becomes U+FFFD.
std::wstring WideFromText(std::string_view text);
std::string TextFromWide(std::wstring_view wide);

// The same for bytes in the system's code page. Nothing for what it has no letters for.
std::wstring WideFromAnsi(std::string_view bytes);
std::optional<std::string> AnsiFromWide(std::wstring_view wide);

// A path for a function that takes only names in the code page: the path itself, or the system's short name
// for it. Nothing when there is none.
std::optional<std::string> AnsiPath(const std::string& path);

} // namespace tarveth::platform
