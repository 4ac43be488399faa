// General chat: unmarked text, line by line, and the commands that the server takes for itself.
#pragma once

#include "server/Lobby.h"

namespace tarveth {

// A part of the stream outside any message. A line ends at a line end, at a message, or when nothing follows.
void HearText(Lobby& lobby, Session& speaker, std::string_view text);
void EndLine(Lobby& lobby, Session& speaker);

} // namespace tarveth
