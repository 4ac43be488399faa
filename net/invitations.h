// The way to an opponent: an invitation of this user's to somebody, invitations of others' to this user, and
// their answers. At most one of this user's is unanswered at a time. Those of others' wait for this user's
// answer, one of each person; the first of them is asked about.
#pragma once

#include "net/ClientPorts.h"
#include "net/chat.h"
#include "net/gamelink.h"
#include "net/modSockets.h"

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

namespace tarveth {

class Invitations {
public:
    // All outlive the object.
    Invitations(ClientWindowPort& window, ClientPersonPort& person, modSockets& connection,
                const Nicknames& nicks, Chat& chat, GameLink& link);

    // Whether an invitation of this user's is unanswered.
    bool IsInviting() const { return !invited_.empty(); }

    // This user invites somebody; an empty nickname means that nobody is selected.
    void Invite(std::string_view nick);
    // Says whose answer this user waits for.
    void TellThatOneWaits();
    // This user takes an invitation back that has no answer yet.
    void Withdraw();
    // The question that is open; 0: none.
    std::uint64_t Question() const { return asking_.empty() ? 0 : asking_.front().number; }
    // This user answers that question. The invitation may have gone meanwhile, and then nothing happens.
    void Answer(std::uint64_t question, bool yes);

    // Somebody has invited this user.
    void TakeInvitation(std::string_view from);
    // Somebody has answered an invitation of this user's.
    void TakeRefusal(std::string_view sentence);
    void TakeAcceptance(std::string_view from, std::string_view sentence);
    // Somebody has withdrawn their invitation to this user, or will not answer one of this user's.
    void TakeEnd(std::string_view from);
    // Somebody has another nickname, or has left the lobby.
    void Rename(std::string_view oldNick, std::string_view newNick);
    void Leave(std::string_view nick);

    // The visit is over: whoever waits for this user's answer is told by the server; whoever this user waits
    // for is told here.
    void End();

private:
    struct Asking {
        std::string nick;
        std::uint64_t number = 0;
    };

    std::deque<Asking>::iterator FindAsking(std::string_view nick);
    void SetInvited(std::string_view nick);
    void RefuseBusily(std::string_view from);
    void RefuseAllBusily();
    void Refuse(std::string_view from);
    void Accept(std::string_view from);
    bool Drop(std::string_view from);
    void ShowQuestion();

    ClientWindowPort& window_;
    ClientPersonPort& person_;
    modSockets& connection_;
    const Nicknames& nicks_;
    Chat& chat_;
    GameLink& link_;
    std::string invited_;       // by this user, without an answer yet; empty: nobody
    std::string withdrawn_;     // whose acceptance may still be on its way
    std::deque<Asking> asking_; // who have invited this user
    std::uint64_t questions_ = 0;
};

} // namespace tarveth
