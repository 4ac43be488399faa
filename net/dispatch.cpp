// What the server says: one table row a message.
#include "net/modClient.h"
#include "net/wire/modPARSER.h"

#include <array>

namespace tarveth {

struct modClient::MessageRow {
    std::string_view name;
    std::size_t leastFields; // with fewer it is ignored, and so is one of another name
    unsigned grouping;       // how its arguments split
    void (modClient::*handle)(const LobbyMessage&);
};

std::span<const modClient::MessageRow> modClient::MessageTable() {
    static constexpr std::array kTable = {
        MessageRow{"changenick", 2, 0, &modClient::HandleChangeNick},
        MessageRow{"removenick", 1, 0, &modClient::HandleRemoveNick},
        MessageRow{"addnick", 1, 0, &modClient::HandleAddNick},
        MessageRow{"update", 1, 0, &modClient::HandleUpdate},
        MessageRow{"oldver", 1, 0, &modClient::HandleOldVersion},
        MessageRow{"invite", 2, 0, &modClient::HandleInvite},
        MessageRow{"refuse", 1, 0, &modClient::HandleRefuse},
        MessageRow{"accept", 2, 0, &modClient::HandleAccept},
        MessageRow{"play", 2, kGroupParentheses | kGroupQuotes, &modClient::HandlePlay},
        MessageRow{"end", 1, 0, &modClient::HandleEnd},
        MessageRow{"sys", 1, 0, &modClient::HandleSystem},
        MessageRow{"alert", 1, 0, &modClient::HandleAlert},
    };
    return kTable;
}

// The messages come first, then all the text that stood around them. A message that closes the window ends
// it.
void modClient::DispatchMessages(std::string_view bytes) {
    std::string text;
    while (visit_ != nullptr) {
        const auto frame = framer_.Next(bytes);
        if (!frame)
            break;
        if (frame->kind == Frame::Kind::Message)
            DispatchMessage(*frame);
        else if (frame->kind == Frame::Kind::Text)
            text += frame->whole;
        else
            ShowNotice("A message of more than " + std::to_string(kLongestMessage) +
                       " characters was ignored.");
    }
    if (visit_ != nullptr)
        ShowLines(text);
    if (IsOpen())
        ShowUsersIfChanged();
}

void modClient::DispatchMessage(const Frame& frame) {
    for (const MessageRow& row : MessageTable()) {
        if (row.name != frame.name)
            continue;
        LobbyMessage message{frame.arguments, {}};
        const std::size_t count = SplitFields(frame.arguments, ",", row.grouping, message.fields);
        for (std::string_view& field : message.fields)
            field = TrimBlanks(field);
        if (count >= row.leastFields)
            (this->*row.handle)(message);
        return;
    }
}

void modClient::HandleOldVersion(const LobbyMessage&) {
    TellCritical(
        "I'm not compatible with that version of Tarveth Server. You need to upgrade your Tarveth to "
        "a newer version.",
        "Incompatible");
    Unload();
}

void modClient::HandlePlay(const LobbyMessage& message) {
    if (gameLinkState_ == kLinkInGame)
        tools_.ParseGameMessages(message.fields[1]);
}

void modClient::HandleSystem(const LobbyMessage& message) {
    ShowNotice(message.arguments);
}

void modClient::HandleAlert(const LobbyMessage& message) {
    TellCritical(message.arguments, "Alert");
}

} // namespace tarveth
