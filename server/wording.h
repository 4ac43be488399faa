// Text of one user that the lobby passes on to others: each text names its author, in one way for all, and
// cannot be taken for the word of somebody else.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace tarveth {

// Gives the sentence of a refusal or an acceptance as the inviter is shown it: the sender's nickname, ": "
// and the sentence, on one line with balanced parentheses, cut so that the message is no longer than a client
// takes.
std::string SignedSentence(std::string_view sentence, std::string_view sender);

// Whether a text is, or looks like, the nickname of a user who is present.
using IsNickname = std::function<bool(std::string_view)>;

// Gives a chat line with its end. Clients may show any part of a line as a line of its own, because TCP may
// cut it anywhere. So no part of the line that begins behind its first character begins with a nickname and a
// colon, or with the words by which the server confirms a nickname: a blank before the colon, or a hyphen,
// keeps that from happening.
std::string ChatLine(std::string_view speaker, std::string_view text, const IsNickname& isNickname);

} // namespace tarveth
