// Free text on its way to others: what is done to it so that it stands inside a message, and so that nobody
// can speak in the server's name. Shared by the game and the lobby.
#pragma once

#include <string>
#include <string_view>

namespace tarveth {

// What a client takes as the server's word on its nickname, at the start of any line and in any case.
inline constexpr std::string_view kConfirmation = "nickname set to ";

// Would a client take a line that begins with this text for that word? Its last blank may still be to come.
bool LooksLikeConfirmation(std::string_view text);

// Without control characters and markers; a tab becomes a blank.
std::string PlainLine(std::string_view text);

// A plain line whose parentheses that close nothing, or never close, are made square brackets, so that it can
// stand inside a marked message.
std::string BalancedLine(std::string_view text);

} // namespace tarveth
