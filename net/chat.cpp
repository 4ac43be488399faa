#include "net/chat.h"

#include "net/transcript.h"
#include "net/userlist.h"
#include "net/wire/plaintext.h"
#include "text/foldcase.h"
#include "text/trim.h"

#include <chrono>
#include <utility>

namespace tarveth {

namespace {

constexpr std::chrono::milliseconds kLongestWait{200}; // for the rest of a line

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

void Chat::TakeText(std::string_view text) {
    while (!text.empty()) {
        const std::size_t end = text.find_first_of("\r\n");
        const bool whole = end != std::string_view::npos;
        if (!skipsLine_)
            Keep(text.substr(0, end));
        if (whole) {
            ShowKeptText();
            skipsLine_ = false;
        }
        text.remove_prefix(whole ? end + 1 : text.size());
    }
}

// The rest of a line that is longer than any transcript shows is passed over: shown as a line of its own, it
// could pass for anything.
void Chat::Keep(std::string_view text) {
    if (kept_.empty() && !text.empty())
        window_.StartChatTimer(kLongestWait);
    kept_.append(text.substr(0, TranscriptLines::kLongestLine + 1 - kept_.size()));
    if (kept_.size() <= TranscriptLines::kLongestLine)
        return;
    ShowKeptText(); // cut, with the dots that say so
    skipsLine_ = true;
}

void Chat::ShowKeptText() {
    AppendTranscript(std::exchange(kept_, {}), false);
}

void Chat::ShowPrivateLine(std::string_view text) {
    AppendTranscript(nicks_.opponent + ":[p] " + PlainLine(text), false);
}

} // namespace tarveth
