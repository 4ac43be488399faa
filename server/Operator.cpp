#include "server/Operator.h"

#include "net/wire/plaintext.h"
#include "platform/file_error.h"
#include "server/bans_file.h"
#include "server/calendar.h"
#include "server/figures_text.h"
#include "server/user_table.h"
#include "text/codepage.h"
#include "text/trim.h"

#include <algorithm>
#include <utility>

namespace tarveth {

namespace {

std::string Reason(const std::string& word) {
    return PlainLine(ToWire(Trim(word)));
}

std::string TargetText(const Target& target) {
    const std::string nick = FromWire(target.nick);
    const std::string range = target.range ? RangeText(*target.range) : std::string();
    if (nick.empty() || range.empty())
        return nick + range;
    return nick + " (" + range + ")";
}

std::string SanctionText(const Sanction& sanction) {
    return TargetText(sanction.target) +
           (sanction.kind == Sanction::Kind::Ban ? " is banned " : " is muted ") + UntilText(sanction);
}

std::string Because(const std::string& reason) {
    return reason.empty() ? std::string() : ": " + FromWire(reason);
}

// A text that reads as an address or a range is one; anything else is a nickname.
Target TargetOf(const std::string& whom) {
    const std::string text = Trim(whom);
    if (const auto range = ParseRange(text))
        return {{}, range};
    return {ToWire(text), std::nullopt};
}

Operator::Answer Failure(const std::string& text) {
    return {false, text + "\n"};
}

} // namespace

Operator::Operator(Lobby& lobby, std::string bansFile, Log log)
    : lobby_(lobby), bansFile_(std::move(bansFile)), log_(std::move(log)) {
    if (!bansFile_.empty())
        lobby_.Decisions().Set(OpenBansFile(bansFile_));
}

void Operator::Reload(const std::string& bansFile, Time now) {
    if (!bansFile.empty())
        lobby_.Decisions().Set(OpenBansFile(bansFile));
    bansFile_ = bansFile;
    lobby_.SetNow(now);
    PutOutBanned();
}

const std::vector<Operator::Command>& Operator::Commands() {
    static const std::vector<Command> kCommands = {
        {"list", 0, &Operator::List},
        {"kick", 2, &Operator::Kick},
        {"ban", 3, &Operator::Ban},
        {"mute", 3, &Operator::Mute},
        {"unban", 1, &Operator::Unban},
        {"unmute", 1, &Operator::Unmute},
        {"bans", 0, &Operator::ListSanctions},
        {"broadcast", 1, &Operator::Broadcast},
        {"figures", 0, &Operator::TellFigures},
        {"health", 0, &Operator::TellHealth},
    };
    return kCommands;
}

Operator::Answer Operator::Do(const Words& words, Time now) {
    lobby_.SetNow(now);
    const auto command = std::ranges::find_if(Commands(), [&words](const Command& row) {
        return words.size() == row.arguments + 1 && words.front() == row.name;
    });
    if (command == Commands().end())
        return Failure("The lobby knows no such request; is it of another version?");
    return (this->*command->handle)(words);
}

Operator::Answer Operator::List(const Words&) {
    return {true, UserTable(lobby_)};
}

// words: whom, reason.
Operator::Answer Operator::Kick(const Words& words) {
    const Target target = TargetOf(words[1]);
    const std::string reason = Reason(words[2]);
    const std::vector<Session*> sessions = Meant(target);
    if (sessions.empty())
        return Failure("Nobody who is here is meant by " + words[1]);
    std::string text;
    for (Session* session : sessions) {
        const std::string nick = session->nick;
        ++lobby_.Counts().putOut;
        lobby_.PutOut(*session,
                      "The operator has put you out of the lobby" + (reason.empty() ? "." : ": " + reason),
                      "the operator has put it out" + (reason.empty() ? "" : ": " + reason));
        const std::string who = TargetText({nick, RangeOf(session->address, 128)});
        log_(who + " is put out" + Because(reason));
        text += who + " has been put out\n";
    }
    return {true, text};
}

// words: whom, for how long, reason.
Operator::Answer Operator::Decide(Sanction::Kind kind, const Words& words) {
    Sanction sanction{kind, FullTarget(words[1]), std::nullopt, Reason(words[3])};
    if (sanction.target == Target{})
        return Failure("Nobody is named");
    if (!words[2].empty()) {
        const auto duration = ParseDuration(words[2]);
        if (!duration)
            return Failure(words[2] + " is no time such as 90s, 10m, 2h, 7d or 4w");
        sanction.until = WallNow() + *duration;
    }
    if (const auto fault = ReadAgain())
        return Failure("Nothing has changed, since the bans can't be read: " + *fault);
    lobby_.Decisions().Add(sanction);
    log_(SanctionText(sanction) + Because(sanction.reason));
    const std::size_t out = PutOutBanned();
    return Keep(SanctionText(sanction) + (out > 0 ? "; put out: " + std::to_string(out) : std::string()));
}

// words: whom.
Operator::Answer Operator::Lift(Sanction::Kind kind, const Words& words) {
    const Target target = TargetOf(words[1]);
    if (const auto fault = ReadAgain())
        return Failure("Nothing has changed, since the bans can't be read: " + *fault);
    const std::string state = kind == Sanction::Kind::Ban ? "banned" : "muted";
    if (lobby_.Decisions().Remove(kind, target) == 0)
        return Failure(TargetText(target) + " is not " + state);
    const std::string text = TargetText(target) + " is no longer " + state;
    log_(text);
    return Keep(text);
}

// Reads what may have been changed in the file by hand, since the file is going to be written. Gives what is
// wrong with it.
std::optional<std::string> Operator::ReadAgain() {
    try {
        if (!bansFile_.empty())
            lobby_.Decisions().Set(ReadBansFile(bansFile_));
    } catch (const platform::FileError& error) {
        return error.what();
    }
    return std::nullopt;
}

// Writes the file, and ends the answer to a request that has changed what stands in it.
Operator::Answer Operator::Keep(const std::string& text) {
    lobby_.Decisions().RemoveExpired(WallNow());
    if (bansFile_.empty())
        return {true, text + ", as long as the lobby runs: it has no bans file\n"};
    try {
        WriteBansFile(bansFile_, lobby_.Decisions().All());
    } catch (const platform::FileError& error) {
        return Failure(text + ", but only as long as the lobby runs: " + error.what());
    }
    return {true, text + "\n"};
}

Operator::Answer Operator::ListSanctions(const Words&) {
    lobby_.Decisions().RemoveExpired(WallNow());
    std::string text;
    for (const Sanction& sanction : lobby_.Decisions().All())
        text += SanctionText(sanction) + Because(sanction.reason) + "\n";
    return {true, text.empty() ? "Nobody is banned or muted\n" : text};
}

// words: the text.
Operator::Answer Operator::Broadcast(const Words& words) {
    const std::string text = Reason(words[1]);
    if (text.empty())
        return Failure("There is nothing to say");
    lobby_.TellAll(text);
    log_("all are told: " + FromWire(text));
    return {true, "Told to " + std::to_string(lobby_.Users().size()) + " users\n"};
}

Operator::Answer Operator::TellFigures(const Words&) {
    return {true, FiguresForPrometheus(lobby_)};
}

Operator::Answer Operator::TellHealth(const Words&) {
    return {true, "The lobby runs: " + FiguresLine(lobby_) + "\n"};
}

// A nickname is soon changed, so that of a user who is here stands for the user's address as well.
Target Operator::FullTarget(const std::string& whom) const {
    Target target = TargetOf(whom);
    if (target.nick.empty())
        return target;
    if (const std::vector<Session*> users = Meant(target); !users.empty()) {
        target.nick = users.front()->nick;
        target.range = LimitRange(users.front()->address);
    }
    return target;
}

std::vector<Session*> Operator::Meant(const Target& target) const {
    std::vector<Session*> meant;
    std::ranges::copy_if(lobby_.Sessions(), std::back_inserter(meant), [&target](const Session* session) {
        return session->stage != Stage::Dismissed &&
               (target.Holds(session->address) || target.HoldsNick(session->nick));
    });
    return meant;
}

std::size_t Operator::PutOutBanned() {
    std::size_t count = 0;
    const std::vector<Session*> sessions = lobby_.Sessions();
    for (Session* session : sessions) {
        const Sanction* ban =
            lobby_.Decisions().Find(Sanction::Kind::Ban, session->address, session->nick, WallNow());
        if (ban == nullptr || session->stage == Stage::Dismissed)
            continue;
        ++count;
        ++lobby_.Counts().putOut;
        lobby_.PutOut(*session, BanSentence(*ban), "it is banned");
    }
    return count;
}

} // namespace tarveth
