#include "server/chat.h"

#include "net/wire/plaintext.h"
#include "server/wording.h"
#include "text/foldcase.h"
#include "text/trim.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace tarveth {

namespace {

// The characters that are kept of a chat line.
constexpr std::size_t kLongestLine = kLongestMessage;

constexpr std::size_t kMostListed = 60; // nicknames in the answer to /who

void CommandIgnore(Lobby& lobby, Session& user, std::string_view nick) {
    const std::string folded = FoldCase(nick);
    if (nick.empty())
        lobby.Tell(user, "Whom? Say /ignore NAME.");
    else if (folded == FoldCase(user.nick))
        lobby.Tell(user, "You can't ignore yourself.");
    else if (lobby.FindUser(nick) == nullptr)
        lobby.Tell(user, std::string(nick) + " is not here.");
    else if (user.ignored.size() >= lobby.Bounds().ignoredUsers)
        lobby.Tell(user, "You ignore too many already.");
    else {
        if (!IgnoreLists::Ignores(user, *lobby.FindUser(nick)))
            lobby.Ignored().Add(user, folded);
        lobby.Tell(user, "You ignore " + std::string(nick) + " now.");
    }
}

void CommandUnignore(Lobby& lobby, Session& user, std::string_view nick) {
    const std::string folded = FoldCase(nick);
    if (std::ranges::find(user.ignored, folded) == user.ignored.end()) {
        lobby.Tell(user, "You don't ignore " + std::string(nick) + ".");
        return;
    }
    lobby.Ignored().Remove(user, folded);
    lobby.Tell(user, "You hear " + std::string(nick) + " again.");
}

void CommandWho(Lobby& lobby, Session& user, std::string_view) {
    const auto& users = lobby.Users();
    std::string text = std::to_string(users.size()) + (users.size() == 1 ? " user: " : " users: ");
    for (std::size_t i = 0; i < users.size() && i < kMostListed; ++i)
        text += (i > 0 ? ", " : "") + users[i]->nick + (users[i]->partner != nullptr ? " [in a game]" : "");
    if (users.size() > kMostListed)
        text += " and " + std::to_string(users.size() - kMostListed) + " more";
    lobby.Tell(user, text);
}

void CommandHelp(Lobby& lobby, Session& user, std::string_view) {
    lobby.Tell(user, "/who lists who is here. /ignore NAME keeps that user's chat and invitations from you, "
                     "/unignore NAME lets them through again. /help says this.");
}

struct Command {
    std::string_view name;
    void (*handle)(Lobby&, Session&, std::string_view rest);
};

constexpr std::array kCommands = {
    Command{"/ignore", CommandIgnore},
    Command{"/unignore", CommandUnignore},
    Command{"/who", CommandWho},
    Command{"/help", CommandHelp},
};

void RunCommand(Lobby& lobby, Session& user, std::string_view line) {
    const std::string_view name = line.substr(0, line.find(' '));
    for (const Command& command : kCommands) {
        if (command.name == FoldCase(name)) {
            command.handle(lobby, user, TrimBlanks(line.substr(name.size())));
            return;
        }
    }
    lobby.Tell(user, "There is no command " + std::string(name) + ". Say /help for those that there are.");
}

bool WithinLimits(Lobby& lobby, Session& speaker, std::size_t characters) {
    const Limits& limits = lobby.Bounds();
    if (lobby.Allow(speaker, &Allowances::chatCharacters, limits.chatCharacters,
                    static_cast<double>(characters)) &&
        lobby.Allow(speaker, &Allowances::chatLines, limits.chatLines, 1)) {
        speaker.toldChat = false;
        return true;
    }
    if (!speaker.toldChat)
        lobby.Tell(speaker, "You are talking too much; some of your lines were not passed on.");
    speaker.toldChat = true;
    lobby.CountDropped(speaker);
    return false;
}

bool IsMuted(Lobby& lobby, Session& speaker) {
    const Sanction* mute =
        lobby.Decisions().Find(Sanction::Kind::Mute, speaker.address, speaker.nick, WallNow());
    if (mute == nullptr)
        return false;
    lobby.Tell(speaker, "Your line was not passed on: you are muted " + UntilText(*mute) +
                            (mute->reason.empty() ? "." : ": " + mute->reason));
    return true;
}

void Say(Lobby& lobby, Session& speaker, std::string_view text) {
    const std::string plain = PlainLine(text);
    const std::string_view line = TrimBlanks(plain);
    if (line.empty())
        return;
    if (!speaker.IsUser()) {
        lobby.CountDropped(speaker);
        return;
    }
    if (!WithinLimits(lobby, speaker, text.size()))
        return;
    lobby.CountAccepted();
    if (line.front() == '/') {
        RunCommand(lobby, speaker, line);
        return;
    }
    if (IsMuted(lobby, speaker))
        return;
    ++lobby.Counts().chatLines;
    lobby.AnnounceFrom(speaker, {ChatLine(speaker.nick, line, [&lobby](std::string_view name) {
                           return lobby.Names().IsNickname(name);
                       })});
}

} // namespace

void ReceiveText(Lobby& lobby, Session& speaker, std::string_view text) {
    while (!text.empty()) {
        const std::size_t end = text.find_first_of("\r\n");
        const std::string_view part = text.substr(0, end);
        speaker.line.append(part.substr(0, kLongestLine - std::min(kLongestLine, speaker.line.size())));
        if (end == std::string_view::npos)
            return;
        EndLine(lobby, speaker);
        text.remove_prefix(end + 1);
    }
}

void EndLine(Lobby& lobby, Session& speaker) {
    const std::string line = std::exchange(speaker.line, {});
    Say(lobby, speaker, line);
}

} // namespace tarveth
