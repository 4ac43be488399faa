// Sentences that one user sends to another inside a refuse or accept message.
#pragma once

#include <string>
#include <string_view>

namespace tarveth {

// Makes the sentence of a refusal or an acceptance one line with balanced parentheses that names its sender:
// the sender's nickname is put in front if the sentence does not hold it. Clients show the line as a notice.
std::string SignedSentence(std::string_view sentence, std::string_view sender);

} // namespace tarveth
