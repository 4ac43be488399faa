// What the lobby knows of one client: nickname, game, invitations, remaining allowances, and the bytes to be
// sent.
#pragma once

#include "net/wire/framing.h"
#include "server/Allowances.h"
#include "server/ClientAddress.h"
#include "server/Outgoing.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarveth {

class Connection;
struct AddressEntry;
struct Session;

enum class Stage : std::uint8_t {
    Greeted,   // the client has been sent the lobby's version
    Versioned, // the client has sent its own version, and it is not too old
    Named,     // the client has a nickname: it is a user
    Dismissed  // the client is sent what is queued, then closed; what it sends is ignored
};

enum class TimerKind : std::uint8_t {
    Deadline, // the handshake must be complete; a dismissed client is cut off
    ChatLine, // a chat line without a line end is complete
    Resume,   // the client may be read from again
    Presence  // the client must have acknowledged something
};
inline constexpr std::size_t kTimerKinds = 4;

// An open invitation, as one of its two users sees it.
struct Invitation {
    Session* other;
    std::string
        inviter; // the nicknames when the invitation was sent, by which the programs still name each other
    std::string invitee;
};

struct Session {
    // connection: belongs to the transport, and is not used by the lobby.
    Session(Connection* connection, const ClientAddress& address, const Limits& limits)
        : connection(connection), address(address), framer(limits.longestMessage, MessageNames::Letters) {}
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    Connection* connection;
    ClientAddress address;
    Session* partner = nullptr; // in an accepted game
    std::string nick;
    std::string dismissal;                // why the lobby has dismissed the client, for the log
    std::vector<std::string> formerNicks; // nicknames by which the partner's program may still name this user
    std::vector<Invitation> invited;      // sent by this user, and not answered yet
    std::vector<Invitation> invitedBy;    // sent to this user, and not answered yet
    std::vector<std::string> ignored;     // nicknames in small letters

    Framer framer;
    std::string line; // the beginning of a chat line whose end has not been received

    std::string absentPartner;      // the key in Absences of a partner whose connection has ended
    std::uint64_t acknowledged = 0; // bytes, when the client's presence was last doubted
    Time arrived{};

    AddressEntry* addressEntry = nullptr; // null if the address is exempt from limits
    Allowances allowances;
    Bucket moves;
    std::size_t inputHeld = 0; // bytes of incomplete messages and lines, as the lobby counted them last
    std::array<Time, kTimerKinds> timers{}; // Time{} where a timer is not set

    Outbox box;
    std::uint32_t place = 0; // index in the lobby's list of users
    std::uint32_t seat = 0;  // index in the lobby's list of sessions
    Stage stage = Stage::Greeted;
    std::uint8_t presenceChecks = 0; // how often the client is still asked whether it is there
    bool toldChat = false;           // the user has been told that chat lines were dropped
    bool toldMessages = false;       // the user has been told that messages were ignored
    bool due = false;                // the session is in the list that Lobby::TakeDue gives
    bool paused = false;             // the transport does not read from the client for now
    bool useful = false;             // all that the client sent last could be used
    bool cutOff = false;             // the transport closes the connection, whatever is unsent

    bool IsUser() const { return stage == Stage::Named; }
    // Whether the client is read from before others.
    bool IsUseful() const { return useful && IsUser(); }
};

} // namespace tarveth
