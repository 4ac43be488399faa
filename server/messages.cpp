#include "server/messages.h"

#include "server/games.h"
#include "server/nicknames.h"
#include "text/trim.h"
#include "text/versionnumber.h"

namespace tarveth {

namespace {

constexpr unsigned Bit(Stage stage) {
    return 1U << static_cast<unsigned>(stage);
}

constexpr unsigned kGreeted = Bit(Stage::Greeted);
constexpr unsigned kNamed = Bit(Stage::Named);

void HandleClientVersion(Lobby& lobby, Session& session, const ClientMessage& message) {
    const auto version = VersionNumber(message.fields[0]);
    if (version && *version >= lobby.Bounds().oldestClient) {
        session.stage = Stage::Versioned;
        return;
    }
    lobby.Send(session, {kMarkerText, "oldver()"});
    lobby.Dismiss(session, "its version is too old");
}

void HandleNick(Lobby& lobby, Session& session, const ClientMessage& message) {
    TakeNickname(lobby, session, message.fields[0]);
}

void HandleSendNicks(Lobby& lobby, Session& session, const ClientMessage&) {
    lobby.SendUserList(session);
}

constexpr std::array kTable = {
    MessageRow{"play", kNamed, 2, MessageLimit::Moves, HandlePlay},
    MessageRow{"clientver", kGreeted, 1, MessageLimit::Messages, HandleClientVersion},
    MessageRow{"nick", Bit(Stage::Versioned) | kNamed, 1, MessageLimit::Messages, HandleNick},
    MessageRow{"sendnicks", kNamed, 1, MessageLimit::Messages, HandleSendNicks},
    MessageRow{"invite", kNamed, 2, MessageLimit::Messages, HandleInvite},
    MessageRow{"refuse", kNamed, 2, MessageLimit::Messages, HandleRefuse},
    MessageRow{"accept", kNamed, 3, MessageLimit::Messages, HandleAccept},
    MessageRow{"end", kNamed, 2, MessageLimit::Messages, HandleEnd},
};

const MessageRow* FindRow(std::string_view name) {
    for (const MessageRow& row : kTable)
        if (row.name == name)
            return &row;
    return nullptr;
}

// Splits the arguments; false if there are fewer fields.
bool Split(std::string_view text, int fields, ClientMessage& message) {
    for (std::size_t i = 0; i + 1 < static_cast<std::size_t>(fields); ++i) {
        const std::size_t comma = text.find(',');
        if (comma == std::string_view::npos)
            return false;
        message.fields.at(i) = TrimBlanks(text.substr(0, comma));
        text.remove_prefix(comma + 1);
    }
    message.fields.at(static_cast<std::size_t>(fields) - 1) = TrimBlanks(text);
    return true;
}

bool WithinLimit(Lobby& lobby, Session& session, MessageLimit limit) {
    const Limits& limits = lobby.Bounds();
    if (limit == MessageLimit::Moves) {
        // No move may be lost. A client that sends too many is read from later, see Lobby::Receive.
        session.moves.Borrow(limits.moves, 1, lobby.Now());
        return true;
    }
    if (lobby.Allow(session, &Allowances::messages, limits.messages, 1)) {
        session.toldMessages = false;
        return true;
    }
    if (!session.toldMessages)
        lobby.Tell(session, "You are asking too much at once; some of it is ignored.");
    session.toldMessages = true;
    return false;
}

} // namespace

std::span<const MessageRow> MessageTable() {
    return kTable;
}

void DispatchClientMessage(Lobby& lobby, Session& session, const Frame& message) {
    ++lobby.Counts().messages;
    const MessageRow* row = FindRow(message.name);
    const MessageLimit limit = row != nullptr ? row->limit : MessageLimit::Messages;
    ClientMessage split{message.whole, {}};
    if (!WithinLimit(lobby, session, limit) || row == nullptr) {
        lobby.CountDropped(session);
        return;
    }
    if ((row->stages & Bit(session.stage)) == 0) {
        lobby.CountDropped(session);
        if (!session.IsUser())
            lobby.Tell(session, "Tell your version and choose a nickname first.");
        return;
    }
    if (!Split(message.arguments, row->fields, split)) {
        lobby.CountDropped(session);
        return;
    }
    lobby.CountAccepted();
    row->handle(lobby, session, split);
}

} // namespace tarveth
