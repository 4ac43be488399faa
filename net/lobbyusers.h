// The users of the lobby as the server names them, on their way into the client window's list.
#pragma once

#include "net/ClientPorts.h"
#include "net/chat.h"
#include "net/userlist.h"

#include <cstdint>
#include <functional>
#include <string_view>

namespace tarveth {

// Could that be somebody? An empty nickname means nobody.
bool IsNick(std::string_view nick);

class LobbyUsers {
public:
    // All outlive the object. newUserSound is called for everybody who arrives.
    LobbyUsers(ClientWindowPort& window, Chat& chat, const std::function<void()>& newUserSound);

    const UserList& List() const { return list_; }
    void Select(int index) { list_.Select(index); }

    void Arrive(std::string_view nick, std::int16_t status);
    // False, with a notice, if the new nickname is none that anybody could have.
    bool Rename(std::string_view oldNick, std::string_view newNick, std::int16_t status);
    void Leave(std::string_view nick);
    void Clear();

    // Tells the window of all changes since the last call. To be called once for a batch of messages, and
    // before events are handled while something is asked.
    void ShowIfChanged();

private:
    void TellListIsLimited();

    ClientWindowPort& window_;
    Chat& chat_;
    const std::function<void()>& newUserSound_;
    UserList list_;
    bool changed_ = false;
    bool toldListIsLimited_ = false;
};

} // namespace tarveth
