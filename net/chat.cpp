#include "net/chat.h"

#include "net/userlist.h"
#include "net/wire/plaintext.h"
#include "text/foldcase.h"
#include "text/trim.h"

namespace tarveth {

namespace {

bool IsSaidBy(std::string_view nick, std::string_view line) {
    return !nick.empty() && line.starts_with(nick) && line.substr(nick.size()).starts_with(':');
}

} // namespace

void Chat::AppendTranscript(std::string_view text, bool isNotice) {
    if (text.empty())
        return;
    TakeConfirmation(text);
    window_.ShowLine(text, isNotice ? LineKind::Notice : KindOf(text));
}

void Chat::TakeConfirmation(std::string_view text) {
    if (FoldCase(text.substr(0, kConfirmation.size())) != kConfirmation)
        return;
    const std::string_view nick = TrimBlanks(text.substr(kConfirmation.size()));
    if (nick.empty() || nick.size() > UserList::kLongestNick)
        return;
    nicks_.mine = nick;
    window_.ShowCaption(nicks_.Caption());
}

LineKind Chat::KindOf(std::string_view text) const {
    if (IsSaidBy(nicks_.opponent, text))
        return LineKind::Opponent;
    return IsSaidBy(nicks_.mine, text) ? LineKind::Mine : LineKind::Others;
}

void Chat::ShowLines(std::string_view text) {
    while (!text.empty()) {
        const std::size_t end = text.find_first_of("\r\n");
        AppendTranscript(text.substr(0, end), false);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
}

void Chat::ShowPrivateLine(std::string_view text) {
    AppendTranscript(nicks_.opponent + ":[p] " + PlainLine(text), false);
}

} // namespace tarveth
