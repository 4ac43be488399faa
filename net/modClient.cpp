#include "net/modClient.h"

namespace tarveth {

modClient::modClient(Game& game, NetGame& net, Settings& settings, modMAIN& main, MainWindowPort& mainWindow,
                     Sounds& sounds)
    : net_(net),
      settings_(settings),
      main_(main),
      mainWindow_(mainWindow),
      sounds_(sounds),
      tools_(game, net, main, mainWindow, *this) {}

void modClient::Open(ClientWindowPort& window, ClientPersonPort& person, AsyncSocket& socket) {
    window_ = &window;
    person_ = &person;
    connection_.emplace(socket, net_, window, person);
}

void modClient::Close() {
    window_ = nullptr;
    person_ = nullptr;
    connection_.reset();
}

void modClient::Invite() {}
void modClient::Break() {}
void modClient::ChangeNickname() {}
void modClient::Swap() {}
void modClient::EnterLine(std::string_view) {}
void modClient::SetPrivateMode(bool privateMode) {
    privateMode_ = privateMode;
}
void modClient::DispatchMessages(std::string_view) {}
void modClient::AppendTranscript(std::string_view, bool) {}
void modClient::SendGameMessage(std::string_view) {}
void modClient::AnnounceVictory(bool) {}
void modClient::ShowPrivateLine(std::string_view) {}
void modClient::SetCaption() {}
void modClient::SetInGame(bool inGame) {
    net_.InGame = inGame;
}
void modClient::EndGameLink() {}

} // namespace tarveth
