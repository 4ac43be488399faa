#include "net/gamelink.h"

#include "engine/rules/Game.h"
#include "net/wire/messagewriter.h"

namespace tarveth {

GameLink::GameLink(const ClientParts& parts, ClientWindowPort& window, modSockets& connection,
                   Nicknames& nicks, Chat& chat)
    : game_(parts.game),
      net_(parts.net),
      main_(parts.main),
      window_(window),
      connection_(connection),
      nicks_(nicks),
      chat_(chat),
      tools_(parts.game, parts.net, parts.main, parts.mainWindow, *this) {}

void GameLink::BeginAsInvited(std::string_view opponent) {
    tools_.SetLocalRed();
    SetInGame(true);
    tools_.AwaitFirstBoard();
    nicks_.opponent = opponent;
    ShowCaption();
}

void GameLink::BeginAsInviter(std::string_view opponent, std::string_view sentence) {
    if (game_.GameState == kGameOver)
        main_.NewGame(); // a finished board is not sent to a new opponent
    SetInGame(true);
    tools_.SetLocalBlue();
    chat_.ShowNotice(sentence);
    nicks_.opponent = opponent;
    ShowCaption();
    SendBoard();
}

void GameLink::End() {
    SetInGame(false);
    tools_.EndLink();
    nicks_.opponent.clear();
    ShowCaption();
}

void GameLink::Break() {
    connection_.SendMessage(WriteMessage("end", {nicks_.opponent, nicks_.mine}));
    chat_.ShowNotice("You have broken the connection with " + nicks_.opponent + ".");
    End();
}

void GameLink::Swap() {
    tools_.SwapSides();
    SendGameMessage("C(swap)");
}

void GameLink::RenameOpponent(std::string_view nick) {
    nicks_.opponent = nick;
    ShowCaption();
}

void GameLink::SetInGame(bool inGame) {
    net_.InGame = inGame;
    window_.ShowInGame(inGame);
}

void GameLink::SendGameMessage(std::string_view inner) {
    if (IsOn())
        connection_.SendMessage(WriteMessage("play", {nicks_.opponent, inner}));
}

void GameLink::SendBoard() {
    if (IsOn())
        tools_.SendBoard();
}

void GameLink::AnnounceVictory(bool blueWon) {
    if (!IsOn())
        return;
    const bool localWon = blueWon == net_.PlayingBlue;
    const std::string& winner = localWon ? nicks_.mine : nicks_.opponent;
    const std::string& loser = localWon ? nicks_.opponent : nicks_.mine;
    connection_.SendRawText("*** " + winner + (blueWon ? " (playing Blue)" : " (playing Red)") +
                            " has defeated " + loser + "! ***");
}

} // namespace tarveth
