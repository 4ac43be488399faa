// What the server says: one table row a message. The dispatcher checks, the handler trusts.
#include "net/LobbyVisit.h"
#include "net/boxtext.h"
#include "net/linkstate.h"
#include "net/wire/modPARSER.h"
#include "text/trim.h"
#include "text/val.h"

#include <algorithm>
#include <array>
#include <string>

namespace tarveth {

namespace {

// A message of the server's: its argument text, and the fields of it, without the blanks around them.
struct LobbyMessage {
    std::string_view arguments;
    std::array<std::string_view, 3> fields;
};

// The states of the link in which a message is heard, as bits.
constexpr unsigned kWithoutGame = 1;
constexpr unsigned kInGame = 2;
constexpr unsigned kAlways = kWithoutGame | kInGame;

constexpr unsigned kGrouped = kGroupParentheses | kGroupQuotes;

constexpr std::string_view kIncompatible =
    "I'm not compatible with that version of Tarveth Server. You need to upgrade your Tarveth to a newer "
    "version.";
constexpr std::string_view kServerTooOld =
    "The Tarveth Server to which you are connecting is too old, and will not work properly with this version "
    "of Tarveth. You need to connect to a newer server.";

} // namespace

struct LobbyVisit::MessageRow {
    std::string_view name;
    std::size_t leastFields; // with fewer it is ignored, and so is one of another name
    unsigned grouping;       // how its arguments split
    unsigned states;         // in others it is ignored
    void (*handle)(LobbyVisit&, const LobbyMessage&);

    static const MessageRow* Find(std::string_view name);
};

const LobbyVisit::MessageRow* LobbyVisit::MessageRow::Find(std::string_view name) {
    using Visit = LobbyVisit;
    using Message = LobbyMessage;
    static constexpr std::array kTable = {
        MessageRow{"changenick", 2, 0, kAlways,
                   [](Visit& visit, const Message& message) {
                       const auto& [oldNick, newNick, status] = message.fields;
                       visit.RenameUser(oldNick, newNick, LeadingInt16(status));
                   }},
        MessageRow{"removenick", 1, 0, kAlways,
                   [](Visit& visit, const Message& message) { visit.RemoveUser(message.fields[0]); }},
        MessageRow{"addnick", 1, 0, kAlways,
                   [](Visit& visit, const Message& message) {
                       visit.users_.Arrive(message.fields[0], LeadingInt16(message.fields[1]));
                   }},
        MessageRow{"update", 1, 0, kAlways,
                   [](Visit& visit, const Message& message) { visit.Greet(message.arguments); }},
        MessageRow{"oldver", 1, 0, kAlways,
                   [](Visit& visit, const Message&) { visit.LeaveIncompatible(kIncompatible); }},
        MessageRow{"invite", 2, 0, kAlways,
                   [](Visit& visit, const Message& message) { visit.TakeInvitation(message.fields[1]); }},
        MessageRow{
            "refuse", 1, 0, kAlways,
            [](Visit& visit, const Message& message) { visit.invitations_.TakeRefusal(message.fields[1]); }},
        MessageRow{"accept", 2, 0, kAlways,
                   [](Visit& visit, const Message& message) {
                       if (IsNick(message.fields[1]))
                           visit.invitations_.TakeAcceptance(message.fields[1], message.fields[2]);
                   }},
        MessageRow{"play", 2, kGrouped, kInGame,
                   [](Visit& visit, const Message& message) { visit.link_.Receive(message.fields[1]); }},
        MessageRow{"end", 1, 0, kAlways,
                   [](Visit& visit, const Message& message) { visit.TakeEnd(message.fields[1]); }},
        MessageRow{"sys", 1, 0, kAlways,
                   [](Visit& visit, const Message& message) { visit.chat_.ShowNotice(message.arguments); }},
        MessageRow{
            "alert", 1, 0, kAlways,
            [](Visit& visit, const Message& message) { visit.TellCritical(message.arguments, "Alert"); }},
    };
    const auto* const row = std::ranges::find(kTable, name, &MessageRow::name);
    return row == kTable.end() ? nullptr : row;
}

// The messages come first, then all the text that stood around them, as far as its lines are whole. A message
// that closes the window ends it.
void LobbyVisit::DispatchMessages(std::string_view bytes) {
    std::string text;
    while (!leaving_) {
        const auto frame = framer_.Next(bytes);
        if (!frame)
            break;
        if (frame->kind == Frame::Kind::Message)
            DispatchMessage(*frame);
        else if (frame->kind == Frame::Kind::Text)
            text += frame->whole;
        else
            chat_.ShowNotice("A message of more than " + std::to_string(kLongestMessage) +
                             " characters was ignored.");
    }
    if (!leaving_)
        chat_.TakeText(text);
    users_.ShowIfChanged();
}

void LobbyVisit::DispatchMessage(const Frame& frame) {
    const MessageRow* const row = MessageRow::Find(frame.name);
    if (row == nullptr || (row->states & (link_.IsOn() ? kInGame : kWithoutGame)) == 0)
        return;
    LobbyMessage message{frame.arguments, {}};
    const std::size_t count = SplitFields(frame.arguments, ",", row->grouping, message.fields);
    for (std::string_view& field : message.fields)
        field = TrimBlanks(field);
    if (count >= row->leastFields)
        row->handle(*this, message);
}

void LobbyVisit::Greet(std::string_view serverVersion) {
    if (!handshake_.Answer(serverVersion))
        LeaveIncompatible(kServerTooOld);
}

void LobbyVisit::RenameUser(std::string_view oldNick, std::string_view newNick, std::int16_t status) {
    if (!users_.Rename(oldNick, newNick, status))
        return;
    invitations_.Rename(oldNick, newNick);
    if (link_.IsOn() && oldNick == nicks_.opponent)
        link_.RenameOpponent(newNick);
}

// A server that has not said before that the link has ended will not do it any more.
void LobbyVisit::RemoveUser(std::string_view nick) {
    users_.Leave(nick);
    invitations_.Leave(nick);
    if (!link_.IsOn() || nick != nicks_.opponent)
        return;
    chat_.ShowNotice(nicks_.opponent + " has left.");
    link_.End();
}

void LobbyVisit::TakeInvitation(std::string_view from) {
    if (!IsNick(from))
        return;
    invitations_.TakeInvitation(from);
}

// One that names nobody is the opponent's.
void LobbyVisit::TakeEnd(std::string_view from) {
    if (!link_.IsOn() || (!from.empty() && from != nicks_.opponent)) {
        invitations_.TakeEnd(from);
        return;
    }
    chat_.ShowNotice(nicks_.opponent + " has broken the connection with you.");
    link_.End();
}

void LobbyVisit::TellCritical(std::string_view text, std::string_view title) {
    users_.ShowIfChanged();
    person_.ShowMessageBox(BoxText(text), title, BoxIcon::Critical);
}

void LobbyVisit::LeaveIncompatible(std::string_view text) {
    TellCritical(text, "Incompatible");
    Leave();
}

} // namespace tarveth
