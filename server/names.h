// When two nicknames are the same. Text is windows-1252, as on the wire.
#pragma once

#include <string>
#include <string_view>

namespace tarveth {

// Nicknames of one stem would be taken for each other: the folded text up to the first ":", which ends the
// nickname in a chat line, or all of it if nothing stands before a ":".
std::string NicknameStem(std::string_view nickname);

// The nickname's number-th variant, its stem too ("Ann" gives "Ann2"), no longer than a nickname may be.
std::string NicknameVariant(std::string_view nickname, int number);

} // namespace tarveth
