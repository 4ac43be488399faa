#include "net/modClient.h"

#include "net/LobbyVisit.h"

#include <utility>

namespace tarveth {

modClient::modClient(Game& game, NetGame& net, std::string& nickname, modMAIN& main,
                     MainWindowPort& mainWindow, std::function<void()> newUserSound)
    : parts_{game, net, nickname, main, mainWindow, std::move(newUserSound)} {}

modClient::~modClient() = default;

void modClient::Open(ClientWindowPort& window, ClientPersonPort& person, AsyncSocket& socket) {
    visit_ = std::make_shared<LobbyVisit>(parts_, window, person, socket);
    visit_->Begin();
}

void modClient::Close() {
    if (const auto visit = std::exchange(visit_, nullptr))
        visit->End();
}

void modClient::Invite() {
    if (visit_)
        visit_->Invite();
}

void modClient::Break() {
    if (visit_)
        visit_->Break();
}

void modClient::ChangeNickname() {
    if (visit_)
        visit_->ChangeNickname();
}

void modClient::Swap() {
    if (visit_)
        visit_->Swap();
}

void modClient::AnswerInvitation(bool yes) {
    if (visit_)
        visit_->AnswerInvitation(yes);
}

void modClient::EnterLine(std::string_view line) {
    if (visit_)
        visit_->Input().Enter(line);
}

void modClient::SetPrivateMode(bool privateMode) {
    if (visit_)
        visit_->Input().SetPrivateMode(privateMode);
}

bool modClient::PrivateMode() const {
    return visit_ && visit_->Input().PrivateMode();
}

void modClient::SelectUser(int index) {
    if (visit_)
        visit_->Users().Select(index);
}

const UserList& modClient::Users() const {
    static const UserList kNobody;
    return visit_ ? visit_->Users().List() : kNobody;
}

std::string modClient::NickName() const {
    return visit_ ? visit_->Nicks().mine : std::string();
}

std::string modClient::OpponentNick() const {
    return visit_ ? visit_->Nicks().opponent : std::string();
}

std::int16_t modClient::GameLinkState() const {
    return visit_ ? visit_->GameLinkState() : kLinkIdle;
}

void modClient::DispatchMessages(std::string_view bytes) {
    if (const auto visit = visit_) // it must outlive its own end
        visit->DispatchMessages(bytes);
}

void modClient::ShowKeptText() {
    if (visit_)
        visit_->ShowKeptText();
}

void modClient::AppendTranscript(std::string_view text, bool isNotice) {
    if (visit_)
        visit_->Transcripts().AppendTranscript(text, isNotice);
}

void modClient::SendGameMessage(std::string_view inner) {
    if (visit_)
        visit_->Link().SendGameMessage(inner);
}

void modClient::SendBoard() {
    if (visit_)
        visit_->Link().SendBoard();
}

void modClient::AnnounceVictory(bool blueWon) {
    if (visit_)
        visit_->Link().AnnounceVictory(blueWon);
}

} // namespace tarveth
