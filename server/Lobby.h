// The rules of the lobby: which users are present under which nicknames, and what is announced. The lobby
// knows no sockets: the transport hands it received bytes, and sends what it puts into the sessions'
// outboxes. Everything runs on one thread.
#pragma once

#include "server/AddressBook.h"
#include "server/Directory.h"
#include "server/Figures.h"
#include "server/IgnoreLists.h"
#include "server/Limits.h"
#include "server/Outgoing.h"
#include "server/Roster.h"
#include "server/Sanctions.h"
#include "server/Session.h"
#include "server/Timers.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
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

    // Tells how many bytes the client's system has acknowledged, as far as the transport can find out.
    using Acknowledged = std::function<std::optional<std::uint64_t>(const Session&)>;
    void SetAcknowledged(Acknowledged acknowledged) { acknowledged_ = std::move(acknowledged); }

    // Replaces limits and message of the day for all that follows.
    void Configure(const Limits& limits, std::string messageOfTheDay);

    // These calls are for the transport. It owns the sessions, and keeps each at its address from Enter to
    // Leave.
    // Admits a connection of the session's address and greets the client, or gives the sentence by which it
    // is refused; then the session is not used any more.
    std::optional<std::string> Enter(Session& session, Time now);
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
    std::string Refuse(std::string_view sentence);

    Outgoing& Out() { return out_; }
    // All connections, in no particular order, and those that are users.
    const std::vector<Session*>& Sessions() const { return sessions_; }
    const std::vector<Session*>& Users() const { return directory_.Users(); }
    Directory& Names() { return directory_; }
    Sanctions& Decisions() { return sanctions_; }
    const Sanctions& Decisions() const { return sanctions_; }
    const Limits& Bounds() const { return limits_; }
    // The bytes that all clients together keep in memory, and those of one client.
    std::size_t MemoryHeld() const;
    std::size_t HeldBy(const Session& session) const;
    Figures& Counts() { return figures_; }
    const Figures& Counts() const { return figures_; }
    // The time of the event that is being handled. The operator's acts are events as well.
    Time Now() const { return now_; }
    void SetNow(Time now) { now_ = now; }

    // These calls are for the handlers of messages.
    void Send(Session& session, BlockWriter::Parts parts);
    void Announce(BlockWriter::Parts parts) { out_.ToAll(parts); }
    // Sends a notice for the client's transcript. Parentheses without a counterpart are replaced in it.
    void Tell(Session& session, std::string_view text);
    // Sends a notice to all users.
    void TellAll(std::string_view text);
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
    // Shows the client the sentence in a box of its own, and dismisses it.
    void PutOut(Session& session, std::string_view sentence, std::string_view reason);
    // Finds the user of that nickname, ignoring letter case; null if there is none.
    Session* FindUser(std::string_view nick) const { return directory_.Find(nick); }
    // Makes a client a user, and announces it.
    void AddUser(Session& session, const std::string& nick);
    void RenameUser(Session& session, const std::string& nick);
    // Finds out in some seconds whether the client is still there, and closes its connection if it is not.
    void CheckPresence(Session& session);
    void SendUserList(Session& session);
    void StatusChanged(const Session& user);
    // Sends a line to all users except those who ignore its speaker.
    void AnnounceFrom(const Session& speaker, BlockWriter::Parts parts);
    IgnoreLists& Ignored() { return ignoreLists_; }

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
    void RunDeadline(Session& session);
    void AskForPresence(Session& session);
    void CloseIfGone(Session& session);

    void Note(const Session& session, const std::string& event) const;

    Limits limits_;
    Journal journal_;
    Acknowledged acknowledged_;
    Directory directory_;
    IgnoreLists ignoreLists_;
    Sanctions sanctions_;
    AddressBook addresses_;
    std::vector<Session*> sessions_;
    std::size_t inputHeld_ = 0; // bytes of all incomplete messages and lines
    std::string messageOfTheDay_;
    Figures figures_;
    Outgoing out_;
    Roster roster_{out_.Count()};
    Timers timers_;
    std::vector<Session*> due_; // what TakeDue gives next
    int acceptedOfBatch_ = 0;   // messages and lines of the bytes that Receive was given last
    int droppedOfBatch_ = 0;
    Time now_{};
};

} // namespace tarveth
