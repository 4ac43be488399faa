// What a nickname may be, and when two are the same. Text is windows-1252, as on the wire.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarveth {

inline constexpr std::size_t kLongestNickname = 32;

// Small letters for large ones, accented ones too.
std::string FoldCase(std::string_view text);

// The nickname that a user gets who asks for this one: without the characters that no nickname may hold,
// blanks at the ends or blanks in a row, cut to its greatest length. "Player" if nothing is left, or if a
// client would take lines that begin with it for a confirmation by the server.
std::string CleanNickname(std::string_view wanted);

// Nicknames of one stem would be taken for each other: the folded text up to the first ":", which ends the
// nickname in a chat line, or all of it if nothing stands before a ":".
std::string NicknameStem(std::string_view nickname);

// The nickname's number-th variant, its stem too ("Ann" gives "Ann2"), no longer than a nickname may be.
std::string NicknameVariant(std::string_view nickname, int number);

} // namespace tarveth
