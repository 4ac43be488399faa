// What one user says to another through the lobby's own messages.
#pragma once

#include <string>
#include <string_view>

namespace tarveth {

// The sentence that comes with a refusal or an acceptance: a balanced line that a client shows as a notice.
// It has to name its sender, and is given his name in front if it does not.
std::string SignedSentence(std::string_view sentence, std::string_view sender);

} // namespace tarveth
