// The way to an opponent: invitations of this user's to others, of others' to this user, and their answers.
#pragma once

#include "net/ClientPorts.h"
#include "net/chat.h"
#include "net/gamelink.h"
#include "net/modSockets.h"

#include <string_view>

namespace tarveth {

class Invitations {
public:
    // All outlive the object.
    Invitations(ClientPersonPort& person, modSockets& connection, const Nicknames& nicks, Chat& chat,
                GameLink& link);

    // Whether an invitation of this user's is unanswered.
    bool IsInviting() const { return inviting_; }

    // This user invites somebody; an empty nickname means that nobody is selected.
    void Invite(std::string_view nick);
    // Somebody has invited this user, who is asked unless they are busy.
    void TakeInvitation(std::string_view from);
    // Somebody has answered an invitation of this user's.
    void TakeRefusal(std::string_view sentence);
    void TakeAcceptance(std::string_view from, std::string_view sentence);

private:
    void RefuseBusily(std::string_view from);
    void Refuse(std::string_view from);
    void Accept(std::string_view from);

    ClientPersonPort& person_;
    modSockets& connection_;
    const Nicknames& nicks_;
    Chat& chat_;
    GameLink& link_;
    bool inviting_ = false;
};

} // namespace tarveth
