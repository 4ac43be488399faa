// Converts between the program's UTF-8 and the system's wide text and code page.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarveth::platform {

// Convert between UTF-8 and wide text. What is invalid becomes U+FFFD.
std::wstring WideFromText(std::string_view text);
std::string TextFromWide(std::wstring_view wide);

// Convert between bytes in the system's code page and wide text. The result of AnsiFromWide is empty if the
// code page lacks one of the letters.
std::wstring WideFromAnsi(std::string_view bytes);
std::optional<std::string> AnsiFromWide(std::wstring_view wide);

// Gives a path for a function that takes only names in the code page: the path itself, or its short (8.3)
// name. Empty if there is neither.
std::optional<std::string> AnsiPath(const std::string& path);

} // namespace tarveth::platform
