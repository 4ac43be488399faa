// What the transcripts show: whose line each is, and the server's word on the user's own nickname.
#pragma once

#include "net/ClientPorts.h"
#include "net/nicknames.h"

#include <string_view>

namespace tarveth {

class Chat {
public:
    // Both outlive the object. The server may change the user's nickname by a line that it shows.
    Chat(ClientWindowPort& window, Nicknames& nicks) : window_(window), nicks_(nicks) {}

    // A line in the colour of whoever said it, or of a notice. An empty one is not shown.
    void AppendTranscript(std::string_view text, bool isNotice);
    void ShowNotice(std::string_view text) { AppendTranscript(text, true); }
    // Text that the server sent outside all messages, line by line.
    void ShowLines(std::string_view text);
    // What the opponent has said to this user alone.
    void ShowPrivateLine(std::string_view text);

private:
    void TakeConfirmation(std::string_view text);
    LineKind KindOf(std::string_view text) const;

    ClientWindowPort& window_;
    Nicknames& nicks_;
};

} // namespace tarveth
