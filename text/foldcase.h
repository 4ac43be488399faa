// Small letters for large ones, whatever the user's country says. Two texts that differ in case alone give
// the same one.
#pragma once

#include <string>
#include <string_view>

namespace tarveth {

// The letters A to Z only: file names, keywords.
std::string FoldAscii(std::string_view text);
// The accented letters of windows-1252 too: what people write to each other, nicknames.
std::string FoldCase(std::string_view text);

} // namespace tarveth
