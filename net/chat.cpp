// What is said: the lines of the transcripts, and the line that is typed.
#include "net/modClient.h"
#include "net/wire/framing.h"
#include "net/wire/modPARSER.h"
#include "net/wire/nickname.h"
#include "net/wire/plaintext.h"

namespace tarveth {

namespace {

constexpr std::string_view kPrivately = "/p ";
constexpr std::string_view kGenerally = "/g ";

bool IsSaidBy(std::string_view nick, std::string_view line) {
    return !nick.empty() && line.starts_with(nick) && line.substr(nick.size()).starts_with(':');
}

// A marker that is typed would begin a message.
std::string WithoutMarkers(std::string_view text) {
    std::string plain;
    for (const char c : text) {
        if (c == kMarker)
            plain += "(c)";
        else
            plain += c;
    }
    return plain;
}

} // namespace

void modClient::AppendTranscript(std::string_view text, bool isNotice) {
    if (!IsOpen() || text.empty())
        return;
    TakeConfirmation(text);
    window_->ShowLine(text, isNotice ? LineKind::Notice : KindOf(text));
}

void modClient::TakeConfirmation(std::string_view text) {
    if (FoldCase(text.substr(0, kConfirmation.size())) != kConfirmation)
        return;
    const std::string_view nick = TrimBlanks(text.substr(kConfirmation.size()));
    if (nick.empty() || nick.size() > UserList::kLongestNick)
        return;
    nickName_ = nick;
    SetCaption();
}

LineKind modClient::KindOf(std::string_view text) const {
    if (IsSaidBy(opponentNick_, text))
        return LineKind::Opponent;
    return IsSaidBy(nickName_, text) ? LineKind::Mine : LineKind::Others;
}

void modClient::ShowLines(std::string_view text) {
    while (!text.empty()) {
        const std::size_t end = text.find_first_of("\r\n");
        AppendTranscript(text.substr(0, end), false);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
}

void modClient::ShowPrivateLine(std::string_view text) {
    AppendTranscript(opponentNick_ + ":[p] " + PlainLine(text), false);
}

void modClient::SetPrivateMode(bool privateMode) {
    privateMode_ = privateMode;
    if (IsOpen())
        window_->ShowPrivateMode(privateMode);
}

void modClient::EnterLine(std::string_view line) {
    if (!IsOpen())
        return;
    if (FoldCase(line.substr(0, kPrivately.size())) == kPrivately)
        SayPrivately(line.substr(kPrivately.size()));
    else if (!privateMode_)
        SayToAll(line);
    else if (line.starts_with(kGenerally))
        SayToAll(line.substr(kGenerally.size()));
    else
        SayPrivately(line);
}

void modClient::SayPrivately(std::string_view text) {
    if (text.empty())
        return;
    const std::string line = BalancedLine(WithoutMarkers(text));
    AppendTranscript(nickName_ + ":[p] " + line, false);
    if (gameLinkState_ == kLinkInGame)
        SendGameMessage("X(" + line + ")");
    else
        ShowNotice("Nobody has seen that line: you have no opponent.");
}

void modClient::SayToAll(std::string_view text) {
    if (!text.empty())
        connection_->SendRawText(WithoutMarkers(text));
}

} // namespace tarveth
