// The lobby itself: who is there and under which nickname, and what is announced. It knows no sockets: the
// transport hands it bytes, and sends what it leaves in the sessions' outboxes. All on one thread.
#pragma once

#include "server/Alarms.h"
#include "server/Figures.h"
#include "server/Limits.h"
#include "server/Outgoing.h"
#include "server/Roster.h"
#include "server/Session.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tarveth {

class Lobby {
public:
    // The message of the day is told to every user when he has been sent the list of users; none if empty.
    Lobby(const Limits& limits, std::string messageOfTheDay);

    // For the transport. A session is the transport's; it stays where it is until the lobby has been told
    // that it leaves.
    void Enter(Session& session, Time now);
    void Receive(Session& session, std::string_view bytes, Time now);
    void Leave(Session& session);
    // Rings the alarms up to now. The next one is due at NextWake.
    void Wake(Time now);
    std::optional<Time> NextWake() const { return alarms_.Next(); }
    // Sessions that have something new to send, were dismissed, or may be read from again.
    std::vector<Session*> TakeDue();
    // Tells him that the lobby closes.
    void SayGoodbye(Session& session);

    Outgoing& Out() { return out_; }
    // In no order.
    const std::vector<Session*>& Users() const { return users_; }
    const Limits& Bounds() const { return limits_; }
    Figures& Counts() { return figures_; }
    Time Now() const { return now_; }

    // For those who handle messages.
    void Send(Session& session, BlockWriter::Parts parts);
    void Announce(BlockWriter::Parts parts) { out_.ToAll(parts); }
    // A notice in the client's transcript; the text is balanced before it goes.
    void Tell(Session& session, std::string_view text);
    // Sends what has been written to him, then closes.
    void Dismiss(Session& session);
    // The user of that nickname, whatever its case; null if there is none.
    Session* FindUser(std::string_view nick);
    // Gives the session a nickname as near to the wanted one as there is, and tells all.
    void TakeNickname(Session& session, std::string_view wanted);
    void SendUserList(Session& session);
    void StatusChanged(const Session& user);
    // A line that all hear but those who ignore its speaker.
    void AnnounceFrom(const Session& speaker, BlockWriter::Parts parts);
    bool Ignores(const Session& user, const Session& other) const;
    void Ignore(Session& user, std::string_view folded);
    void StopIgnoring(Session& user, std::string_view folded);

private:
    void HandleFrame(Session& session, const Frame& frame);
    void Ring(Session& session, AlarmKind kind);
    void MarkDue(Session& session);
    void PauseAfterDebt(Session& session);
    void WatchOpenLine(Session& session);
    void Depart(Session& session);
    void AddUser(Session& session);
    void RenameUser(Session& session, const std::string& nick);
    std::string FreeNickname(const Session& session, const std::string& nick);
    bool IsFree(const Session& session, std::string_view nick) const;

    Limits limits_;
    std::string messageOfTheDay_;
    Figures figures_;
    Outgoing out_;
    Roster roster_;
    Alarms alarms_;
    std::vector<Session*> users_;
    std::vector<Session*> ignorers_; // those who ignore anybody
    std::vector<Session*> due_;
    std::unordered_map<std::string, Session*> stems_;
    Time now_{};
};

} // namespace tarveth
