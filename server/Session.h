// What the lobby knows of one client: nickname, game, invitations, remaining allowances, and the bytes to be
// sent.
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
    Greeted,   // the client has been sent the lobby's version
    Versioned, // the client has sent its own version, and it is not too old
    Named,     // the client has a nickname: it is a user
    Dismissed  // the client is sent what is queued, then closed; what it sends is ignored
};

enum class TimerKind : std::uint8_t {
    Deadline, // the handshake must be complete; a dismissed client is cut off
    ChatLine, // a chat line without a line end is complete
    Resume    // the client may be read from again
};
inline constexpr std::size_t kTimerKinds = 3;

struct Session {
    // connection: belongs to the transport, and is not used by the lobby.
    Session(Connection* connection, const Limits& limits)
        : connection(connection), framer(limits.longestMessage, MessageNames::Letters) {}
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    Connection* connection;
    Session* partner = nullptr; // in an accepted game
    std::string nick;
    std::string formerNick;           // the nickname before a rename in this game, which moves may still name
    std::vector<Session*> invited;    // the users who have not yet answered this user's invitations
    std::vector<Session*> invitedBy;  // the users whose invitations this user has not yet answered
    std::vector<std::string> ignored; // nicknames in small letters

    Framer framer;
    std::string line; // the beginning of a chat line whose end has not been received

    Bucket chatLines;
    Bucket chatCharacters;
    Bucket messages;
    Bucket moves;
    std::array<Time, kTimerKinds> timers{}; // Time{} where a timer is not set

    Outbox box;
    std::uint32_t place = 0; // index in the lobby's list of users
    Stage stage = Stage::Greeted;
    bool toldChat = false;     // the user has been told that chat lines were dropped
    bool toldMessages = false; // the user has been told that messages were ignored
    bool due = false;          // the session is in the list that Lobby::TakeDue gives
    bool paused = false;       // the transport does not read from the client for now
    bool cutOff = false;       // the transport closes the connection, whatever is unsent

    bool IsUser() const { return stage == Stage::Named; }
};

} // namespace tarveth
