// What the transcripts show: whose line each is, and the server's word on the user's own nickname.
#pragma once

#include "net/ClientPorts.h"
#include "net/nicknames.h"

#include <string>
#include <string_view>

namespace tarveth {

class Chat {
public:
    // Both outlive the object. The server may change the user's nickname by a line that it shows.
    Chat(ClientWindowPort& window, Nicknames& nicks) : window_(window), nicks_(nicks) {}

    // A line in the colour of whoever said it, or of a notice. An empty one is not shown.
    void AppendTranscript(std::string_view text, bool isNotice);
    void ShowNotice(std::string_view text) { AppendTranscript(text, true); }
    // Takes text that the server has sent outside all messages. It is shown line by line; what has no line
    // end yet waits for its rest, or for ShowKeptText, so that no line begins where the network has cut the
    // text.
    void TakeText(std::string_view text);
    // Shows what waits for its rest as a line.
    void ShowKeptText();
    // What the opponent has said to this user alone.
    void ShowPrivateLine(std::string_view text);

private:
    void Keep(std::string_view text);
    void TakeConfirmation(std::string_view text);
    LineKind KindOf(std::string_view text) const;

    ClientWindowPort& window_;
    Nicknames& nicks_;
    std::string kept_;       // the beginning of a line
    bool skipsLine_ = false; // a line is so long that its beginning has been shown, and its rest is not
};

} // namespace tarveth
