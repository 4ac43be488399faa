// One client of the lobby: who he is, what he has asked, what he may still ask, and what he is to be sent.
#pragma once

#include "net/wire/framing.h"
#include "server/Bucket.h"
#include "server/Outgoing.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace tarveth {

class Connection;

enum class Stage : std::uint8_t {
    Greeted,   // has been told the lobby's version
    Versioned, // has told his own, and it will do
    Named,     // has a nickname, and is a user
    Dismissed  // is sent what is left, then closed; nothing he says counts any more
};

enum class AlarmKind : std::uint8_t {
    Patience, // the handshake has to be complete by then; a dismissed client to be gone
    Line,     // a chat line without an end is taken to be whole
    Resume    // he may be read from again
};
inline constexpr std::size_t kAlarmKinds = 3;

struct Session {
    // connection: the transport's; the lobby only carries it.
    Session(Connection* connection, const Limits& limits)
        : connection(connection), framer(limits.longestMessage, MessageNames::Letters) {}
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    Connection* connection;
    Session* partner = nullptr; // in an accepted game
    std::string nick;
    std::string formerNick;           // before a rename in this game: moves to it may be on their way
    std::vector<Session*> invited;    // have not answered yet
    std::vector<Session*> invitedBy;  // have not been answered yet
    std::vector<std::string> ignored; // nicknames, folded

    Framer framer;
    std::string line; // of chat, without its end so far

    Bucket chatLines;
    Bucket chatCharacters;
    Bucket messages;
    Bucket moves;
    std::array<Time, kAlarmKinds> alarms{}; // Time{}: not set

    Outbox box;
    std::uint32_t place = 0; // in the lobby's list of users
    Stage stage = Stage::Greeted;
    bool toldChat = false;     // that lines were dropped
    bool toldMessages = false; // that messages were ignored
    bool due = false;          // in the lobby's list for the transport
    bool paused = false;       // not to be read from for now
    bool cutOff = false;       // to be closed whatever is left

    bool IsUser() const { return stage == Stage::Named; }
};

} // namespace tarveth
