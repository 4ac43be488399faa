// Decides when two nicknames would be taken for each other. Text is windows-1252, as on the wire.
#pragma once

#include <string>
#include <string_view>

namespace tarveth {

// Gives the part of a nickname that has to be unique: its text up to the first ":", in small letters. A ":"
// ends the nickname at the start of a chat line, so that "Ann: x" could speak for "Ann". A nickname without
// text before its first ":" is its own stem.
std::string NicknameStem(std::string_view nickname);

// Gives the nickname with the number appended ("Ann" and 2 give "Ann2"), shortened to the greatest length of
// a nickname. The variant has a stem of its own.
std::string NicknameVariant(std::string_view nickname, int number);

} // namespace tarveth
