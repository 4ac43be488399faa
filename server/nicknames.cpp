#include "server/nicknames.h"

#include "net/wire/plaintext.h"
#include "text/foldcase.h"
#include "text/trim.h"

namespace tarveth {

namespace {

bool IsPutOutByBan(Lobby& lobby, Session& session, std::string_view wanted) {
    const Sanction* ban = lobby.Decisions().Find(Sanction::Kind::Ban, session.address, wanted, WallNow());
    if (ban == nullptr)
        return false;
    ++lobby.Counts().putOut;
    lobby.PutOut(session, BanSentence(*ban), "it is banned");
    return true;
}

bool MayRename(Lobby& lobby, Session& session) {
    if (lobby.Allow(session, &Allowances::renames, lobby.Bounds().renames, 1))
        return true;
    lobby.Tell(session, "You change your nickname too often, so you are still " + session.nick + ".");
    // The client's program has taken the new nickname already.
    lobby.Send(session, {kConfirmation, session.nick, "\r\n"});
    lobby.CountDropped(session);
    return false;
}

// The user of the wanted nickname may be the newcomer's own broken connection.
void AskForItBack(Lobby& lobby, Session& newcomer, std::string_view wanted) {
    Session* user = lobby.FindUser(wanted);
    if (user == nullptr || user == &newcomer || user->address.LimitPrefix() != newcomer.address.LimitPrefix())
        return;
    lobby.Names().Absent().Await(newcomer, user->nick, lobby.Now() + lobby.Bounds().keptNames);
    lobby.CheckPresence(*user);
}

void TellPartnerOfReturn(Lobby& lobby, const Session& user) {
    Session* partner = lobby.Names().Absent().End(user, lobby.Now());
    if (partner == nullptr)
        return;
    const std::string_view offer =
        partner->partner == nullptr ? " Invite them to go on with the game on your board." : "";
    lobby.Tell(*partner, user.nick + " is back." + std::string(offer));
}

} // namespace

void TakeNickname(Lobby& lobby, Session& session, std::string_view wanted) {
    if (IsPutOutByBan(lobby, session, wanted))
        return;
    lobby.Names().Absent().ForgetWaiting(session);
    const auto [clean, nick] = lobby.Names().NicknameFor(session, wanted, lobby.Now());
    if (session.IsUser() && nick != session.nick && !MayRename(lobby, session))
        return;
    if (nick != clean)
        lobby.Tell(session, clean + " is taken, so you are " + nick + ".");
    else if (nick != TrimBlanks(wanted))
        lobby.Tell(session, "That nickname can't be had as it stands, so you are " + nick + ".");
    lobby.Send(session, {kConfirmation, nick, "\r\n"});
    if (session.IsUser())
        lobby.RenameUser(session, nick);
    else
        lobby.AddUser(session, nick);
    if (nick == clean)
        TellPartnerOfReturn(lobby, session);
    else
        AskForItBack(lobby, session, clean);
}

void GiveNicknameBack(Lobby& lobby, const Session& gone) {
    Session* newcomer = lobby.Names().Absent().TakeWaiting(gone, lobby.Now());
    if (newcomer == nullptr)
        return;
    lobby.Tell(*newcomer, gone.nick + " is free again, so you are " + gone.nick + " now.");
    lobby.Send(*newcomer, {kConfirmation, gone.nick, "\r\n"});
    lobby.RenameUser(*newcomer, gone.nick);
    TellPartnerOfReturn(lobby, *newcomer);
}

} // namespace tarveth
