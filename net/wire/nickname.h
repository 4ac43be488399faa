// What a nickname may be. Text is windows-1252, as on the wire. Shared by the game and the lobby.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarveth {

inline constexpr std::size_t kLongestNickname = 32;

// The nickname that a user gets who asks for this one: without the characters that no nickname may hold,
// blanks at the ends or blanks in a row, cut to its greatest length. "Player" if nothing is left, or if a
// client would take lines that begin with it for a confirmation by the server.
std::string CleanNickname(std::string_view wanted);

} // namespace tarveth
