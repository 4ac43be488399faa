#include "net/lobbyusers.h"

#include <utility>

namespace tarveth {

bool IsNick(std::string_view nick) {
    return !nick.empty() && nick.size() <= UserList::kLongestNick;
}

LobbyUsers::LobbyUsers(ClientWindowPort& window, Chat& chat, const std::function<void()>& newUserSound)
    : window_(window), chat_(chat), newUserSound_(newUserSound) {}

void LobbyUsers::Arrive(std::string_view nick, std::int16_t status) {
    if (!IsNick(nick) || !list_.Add(nick, status)) {
        TellListIsLimited();
        return;
    }
    changed_ = true;
    newUserSound_();
}

bool LobbyUsers::Rename(std::string_view oldNick, std::string_view newNick, std::int16_t status) {
    if (!IsNick(newNick)) {
        TellListIsLimited();
        return false;
    }
    changed_ = list_.Change(oldNick, newNick, status) || changed_;
    return true;
}

void LobbyUsers::Leave(std::string_view nick) {
    changed_ = list_.Remove(nick) || changed_;
}

void LobbyUsers::Clear() {
    list_.Clear();
    changed_ = true;
}

void LobbyUsers::ShowIfChanged() {
    if (std::exchange(changed_, false))
        window_.ShowUsers();
}

void LobbyUsers::TellListIsLimited() {
    if (!std::exchange(toldListIsLimited_, true))
        chat_.ShowNotice(
            "The server's list of users is too long, or holds nicknames that are too long or empty; "
            "not all users are shown.");
}

} // namespace tarveth
