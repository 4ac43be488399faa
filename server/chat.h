// General chat, which clients send as text without a marker, and the commands that begin with "/".
#pragma once

#include "server/Lobby.h"

namespace tarveth {

// Adds text to the speaker's current chat line, and passes on each line that the text completes.
void ReceiveText(Lobby& lobby, Session& speaker, std::string_view text);
// Passes on the speaker's current chat line as it is: a message or a pause has followed it.
void EndLine(Lobby& lobby, Session& speaker);

} // namespace tarveth
