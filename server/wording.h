// Free text on its way to other users: what is done to it so that nobody can speak in the server's name.
#pragma once

#include <string>
#include <string_view>

namespace tarveth {

// What a client takes as the server's word on its nickname, at the start of any line.
inline constexpr std::string_view kConfirmation = "nickname set to ";

// Would a client take a line that begins with this text for that word? Its last blank may still be to come.
bool LooksLikeConfirmation(std::string_view text);

// Without control characters and markers; a tab becomes a blank.
std::string PlainLine(std::string_view text);

// A plain line whose parentheses that close nothing, or never close, are made square brackets, so that it can
// stand inside a marked message.
std::string BalancedLine(std::string_view text);

// The sentence that comes with a refusal or an acceptance: a balanced line that a client shows as a notice.
// It has to name its sender, and is given his name in front if it does not.
std::string SignedSentence(std::string_view sentence, std::string_view sender);

} // namespace tarveth
