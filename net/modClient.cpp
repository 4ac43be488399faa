#include "net/modClient.h"

#include "net/wire/nickname.h"
#include "net/wire/plaintext.h"
#include "text/codepage.h"

#include <utility>

namespace tarveth {

modClient::modClient(Game& game, NetGame& net, std::string& nickname, modMAIN& main,
                     MainWindowPort& mainWindow, std::function<void()> newUserSound)
    : net_(net),
      keptNickname_(nickname),
      main_(main),
      mainWindow_(mainWindow),
      newUserSound_(std::move(newUserSound)),
      tools_(game, net, main, mainWindow, *this) {}

void modClient::Open(ClientWindowPort& window, ClientPersonPort& person, AsyncSocket& socket) {
    window_ = &window;
    person_ = &person;
    socket_ = &socket;
    connection_.emplace(socket, net_, window, person);
    visit_ = std::make_shared<const char>();
    connectionBroke_ = false;
    framer_ = Framer();
    prevUpdate_ = false;
    users_.Clear();
    toldListIsLimited_ = false;
    nickName_ = CleanNickname(ToWire(keptNickname_));
    window_->ShowUsers();
    SetPrivateMode(false);
    SetInGame(false);
    SetCaption();
    ConnectEvents();
    main_.RunCommand(WhileOpen(&modClient::Connect));
}

void modClient::Close() {
    if (!IsOpen())
        return;
    const bool wasInGame = gameLinkState_ == kLinkInGame;
    EndGameLink();
    net_.NetConnected = false;
    visit_.reset();
    connection_.reset();
    socket_ = nullptr;
    person_ = nullptr;
    window_ = nullptr;
    if (wasInGame)
        mainWindow_.ShowMessage("The connection to the server is closed; the game goes on at this screen.");
    else if (connectionBroke_)
        mainWindow_.ShowMessage("The connection to the server is closed.");
}

// Does nothing any more if the window that it is made for is to close, or has.
std::function<void()> modClient::WhileOpen(void (modClient::*handle)()) {
    return [this, visit = std::weak_ptr(visit_), handle] {
        if (!visit.expired())
            (this->*handle)();
    };
}

// Bytes wait in the socket while anything else is going on, so that all is handled in its order.
void modClient::ConnectEvents() {
    socket_->ConnectEvent = WhenFree(WhileOpen(&modClient::HandleConnected));
    socket_->DataArrivalEvent = WhenFree(WhileOpen(&modClient::HandleData));
    socket_->CloseEvent = WhenFree(WhileOpen(&modClient::HandleClosed));
}

std::function<void()> modClient::WhenFree(std::function<void()> run) {
    return [this, run = std::move(run)] { main_.RunWhenFree(run); };
}

void modClient::Connect() {
    connection_->ConnectToServer();
}

void modClient::HandleConnected() {
    connection_->Connected();
}

void modClient::HandleData() {
    DispatchMessages(socket_->Receive());
}

void modClient::HandleClosed() {
    connectionBroke_ = true;
    Unload();
}

void modClient::Unload() {
    visit_.reset();
    window_->Unload();
}

// Every text is made fit to stand inside a message, wherever it came from.
void modClient::Send(std::string_view name, std::initializer_list<std::string_view> fields) {
    std::string text(name);
    char before = '(';
    for (const std::string_view field : fields) {
        text += before;
        text += BalancedLine(field);
        before = ',';
    }
    text += fields.size() == 0 ? "()" : ")";
    connection_->SendMessage(text);
}

void modClient::SendGameMessage(std::string_view inner) {
    if (gameLinkState_ == kLinkInGame)
        Send("play", {opponentNick_, inner});
}

void modClient::SendBoard() {
    if (gameLinkState_ == kLinkInGame)
        tools_.SendBoard();
}

void modClient::AnnounceVictory(bool blueWon) {
    if (gameLinkState_ != kLinkInGame)
        return;
    const bool localWon = blueWon == net_.PlayingBlue;
    const std::string& winner = localWon ? nickName_ : opponentNick_;
    const std::string& loser = localWon ? opponentNick_ : nickName_;
    connection_->SendRawText("*** " + winner + (blueWon ? " (playing Blue)" : " (playing Red)") +
                             " has defeated " + loser + "! ***");
}

void modClient::SetCaption() {
    const std::string opponent = opponentNick_.empty() ? "<nobody>" : opponentNick_;
    window_->ShowCaption("Internet Tarveth (" + nickName_ + " vs. " + opponent + ")");
}

void modClient::SetInGame(bool inGame) {
    net_.InGame = inGame;
    window_->ShowInGame(inGame);
}

void modClient::EndGameLink() {
    gameLinkState_ = kLinkIdle;
    SetInGame(false);
    tools_.EndLink();
    opponentNick_.clear();
    SetCaption();
}

} // namespace tarveth
