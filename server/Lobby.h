// The rules of the lobby: which users are present under which nicknames, and what is announced. The lobby
// knows no sockets: the transport hands it received bytes, and sends what it puts into the sessions'
// outboxes. Everything runs on one thread.
#pragma once

#include "server/AddressBook.h"
#include "server/Figures.h"
#include "server/Limits.h"
#include "server/Outgoing.h"
#include "server/Refusal.h"
#include "server/Roster.h"
#include "server/Session.h"
#include "server/Timers.h"
#include "server/names.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tarveth {

class Lobby {
public:
    // Every user is told the message of the day after the list of users, line by line; an empty one is not
    // told.
    Lobby(const Limits& limits, std::string messageOfTheDay);

    // Tells what a client does, for the operator's log: "is here as Ann". Private texts are never told.
    using Journal = std::function<void(const Session&, const std::string& event)>;
    void SetJournal(Journal journal) { journal_ = std::move(journal); }

    // Replaces limits and message of the day for all that follows.
    void Configure(const Limits& limits, std::string messageOfTheDay);

    // These calls are for the transport. It owns the sessions, and keeps each at its address from Enter to
    // Leave.
    // Admits a connection of the session's address and greets the client, or gives the reason why it is
    // refused; then the session is not used any more.
    std::optional<Refusal> Enter(Session& session, Time now);
    void Receive(Session& session, std::string_view bytes, Time now);
    void Leave(Session& session);
    // Handles the timers that have expired by now. The next one expires at NextTimer.
    void RunTimers(Time now);
    std::optional<Time> NextTimer() const { return timers_.Next(); }
    // Takes the list of sessions that have something new to send, were dismissed, or may be read from again.
    std::vector<Session*> TakeDue();
    // Tells the client that the lobby is closing.
    void SayGoodbye(Session& session);
    // Counts a connection that is refused, and gives the bytes that tell the client why.
    std::string Refuse(Refusal refusal);

    Outgoing& Out() { return out_; }
    // All users, in no particular order.
    const std::vector<Session*>& Users() const { return users_; }
    const Limits& Bounds() const { return limits_; }
    // The bytes that all clients together keep in memory, and those of one client.
    std::size_t MemoryHeld() const;
    std::size_t HeldBy(const Session& session) const;
    Figures& Counts() { return figures_; }
    Time Now() const { return now_; }

    // These calls are for the handlers of messages.
    void Send(Session& session, BlockWriter::Parts parts);
    void Announce(BlockWriter::Parts parts) { out_.ToAll(parts); }
    // Sends a notice for the client's transcript. Parentheses without a counterpart are replaced in it.
    void Tell(Session& session, std::string_view text);
    // Takes the amount from an allowance of the client and of its address; false, and nothing taken, if one
    // of the two does not hold it.
    bool Allow(Session& session, Bucket Allowances::*bucket, const Rate& rate, double amount);
    // Counts a message or a line that is taken.
    void CountAccepted() { ++acceptedOfBatch_; }
    // Counts a message or a line that is dropped. A client that sends too many of them is put out.
    void CountDropped(Session& session);
    // Closes the connection after the client has been sent what is queued.
    // reason: for the log.
    void Dismiss(Session& session, std::string_view reason);
    // Finds the user of that nickname, ignoring letter case; null if there is none.
    Session* FindUser(std::string_view nick) const;
    // Whether the text looks like the nickname of a user who is present, or like a reserved one.
    bool IsNickname(std::string_view text) const;
    // Gives the session the wanted nickname, or the most similar free one, and announces it.
    void TakeNickname(Session& session, std::string_view wanted);
    void SendUserList(Session& session);
    void StatusChanged(const Session& user);
    // Sends a line to all users except those who ignore its speaker.
    void AnnounceFrom(const Session& speaker, BlockWriter::Parts parts);
    bool Ignores(const Session& user, const Session& other) const;
    void Ignore(Session& user, std::string_view folded);
    void StopIgnoring(Session& user, std::string_view folded);

private:
    void HandleFrame(Session& session, const Frame& frame);
    void RunTimer(Session& session, TimerKind kind);
    void MarkDue(Session& session);
    Clock::duration ChargeUselessBytes(Session& session, std::size_t bytes);
    void Offend(Session& session, double offences);
    void Pause(Session& session, Clock::duration time);
    void WatchOpenLine(Session& session);
    void CountInput(Session& session, std::size_t bytes);
    void RemoveUser(Session& session);
    void AddUser(Session& session);
    void RenameUser(Session& session, const std::string& nick);
    std::string FreeNickname(const Session& session, const std::string& nick);
    bool IsFree(const Session& session, std::string_view nick) const;

    void Note(const Session& session, const std::string& event) const;

    Limits limits_;
    Journal journal_;
    ReservedNames reservedNames_;
    AddressBook addresses_;
    std::size_t connections_ = 0;
    std::size_t inputHeld_ = 0; // bytes of all incomplete messages and lines
    std::string messageOfTheDay_;
    Figures figures_;
    Outgoing out_;
    Roster roster_{out_.Count()};
    Timers timers_;
    std::vector<Session*> users_;
    std::vector<Session*> ignorers_; // the users who ignore somebody
    std::vector<Session*> due_;      // what TakeDue gives next
    std::unordered_map<std::string, Session*> usersBySkeleton_;
    unsigned crowdedNames_ = 0; // how often the first few variants of a nickname were all taken
    int acceptedOfBatch_ = 0;   // messages and lines of the bytes that Receive was given last
    int droppedOfBatch_ = 0;
    Time now_{};
};

} // namespace tarveth
