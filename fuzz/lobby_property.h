// What must hold in a lobby whose clients send arbitrary bytes: games and invitations are mutual, nicknames
// are unique and clean, and what a client is sent is well-formed and in the words of the protocol. The fuzz
// target and the test that replays its corpus share this file.
#pragma once

#include "net/wire/framing.h"
#include "net/wire/nickname.h"
#include "net/wire/plaintext.h"
#include "server/Lobby.h"
#include "server/Operator.h"
#include "text/foldcase.h"

#include <algorithm>
#include <array>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarveth {

// The bytes are a play for four clients: each act begins with a byte that says who acts (bits 0 and 1) and
// what happens (bits 2 to 4), then for words a byte with their length and the words themselves. A client may
// leave and come back, or come back while its old connection, a ghost, is still there. The operator acts too.
class LobbyPlay {
public:
    explicit LobbyPlay(std::string_view bytes) : bytes_(bytes) {
        lobby_.SetAcknowledged([this](const Session& session) { return AcknowledgedBy(session); });
        for (std::size_t i = 0; i < clients_.size(); ++i)
            Replace(i);
    }

    // Runs the play, and gives what is wrong; empty if nothing is.
    std::string Fault() {
        std::string fault;
        while (fault.empty() && !bytes_.empty()) {
            Act();
            fault = StateFault();
            for (std::size_t i = 0; i < clients_.size() && fault.empty(); ++i)
                fault = OutputFault(*clients_.at(i));
            for (const auto& ghost : ghosts_) // which takes nothing
                lobby_.Out().QueueAnnouncements(ghost->session.box);
            lobby_.Out().ForgetAnnouncements(lobby_.Out().AnnouncementsEnd());
            lobby_.TakeDue();
        }
        return fault;
    }

private:
    struct Client {
        Client(const ClientAddress& address, const Limits& limits) : session(nullptr, address, limits) {}
        Session session;
        Framer heard;
    };

    static Limits FuzzLimits() {
        Limits limits;
        limits.longestMessage = 300;
        limits.messages = {100, 1000};
        return limits;
    }

    unsigned char NextByte() {
        if (bytes_.empty())
            return 0;
        const auto byte = static_cast<unsigned char>(bytes_.front());
        bytes_.remove_prefix(1);
        return byte;
    }

    // The first two clients share an address. Where it has connected too often, time passes until it may
    // again; where it is banned, the bans are lifted.
    void Replace(std::size_t i) {
        const ClientAddress address{{0x20, 1, 0xD, 0xB8, 0, 0, 0, static_cast<std::uint8_t>(i / 2)}};
        for (;;) {
            clients_.at(i) = std::make_unique<Client>(address, lobby_.Bounds());
            if (!lobby_.Enter(clients_.at(i)->session, now_))
                return;
            lobby_.Decisions().Set({});
            now_ += std::chrono::seconds(6);
            lobby_.RunTimers(now_);
        }
    }

    void Act() {
        const unsigned act = NextByte();
        const std::size_t who = act & 3U;
        const unsigned what = (act >> 2U) & 3U;
        const bool other = (act & 16U) != 0;
        Session& session = clients_.at(who)->session;
        othersBefore_ = Names();
        othersBefore_.erase(NicknameSkeleton(session.nick));
        if (what == 0 && other) {
            Vanish(who);
        } else if (what == 0) {
            lobby_.Leave(session);
            Replace(who);
        } else if (what == 1 && other) {
            Operate(session.nick);
        } else if (what == 1) {
            now_ += std::chrono::milliseconds(1 + 50 * NextByte());
            lobby_.RunTimers(now_);
        } else {
            const std::string_view words = bytes_.substr(0, NextByte());
            bytes_.remove_prefix(std::min(words.size(), bytes_.size()));
            lobby_.Receive(session, words, now_);
        }
        CloseGhosts();
    }

    // The client comes back while the lobby does not know that its connection is broken. Of more than a few
    // ghosts the oldest is noticed.
    void Vanish(std::size_t who) {
        constexpr std::size_t kMostGhosts = 3;
        ghosts_.push_back(std::move(clients_.at(who)));
        if (ghosts_.size() > kMostGhosts)
            ghosts_.front()->session.cutOff = true;
        Replace(who);
    }

    // As the transport does with sessions that are to be closed at once.
    void CloseGhosts() {
        std::erase_if(ghosts_, [this](const std::unique_ptr<Client>& ghost) {
            if (!ghost->session.cutOff)
                return false;
            lobby_.Leave(ghost->session);
            return true;
        });
    }

    // Everybody but ghosts acknowledges what they are sent.
    std::uint64_t AcknowledgedBy(const Session& session) {
        const bool gone = std::ranges::any_of(ghosts_, [&session](const std::unique_ptr<Client>& ghost) {
            return &ghost->session == &session;
        });
        return gone ? 0 : ++acknowledged_;
    }

    void Operate(const std::string& nick) {
        static constexpr std::array<const char*, 4> kActs = {"kick", "mute", "unmute", "ban"};
        const std::string act = kActs.at(NextByte() % kActs.size());
        if (act == "kick")
            operator_.Do({act, nick, "reason)"}, now_);
        else if (act == "unmute")
            operator_.Do({act, nick}, now_);
        else
            operator_.Do({act, nick, "", "reason"}, now_);
    }

    std::set<std::string> Names() const {
        std::set<std::string> names;
        for (const Session* user : lobby_.Users())
            names.insert(NicknameSkeleton(user->nick));
        return names;
    }

    static bool Holds(const std::vector<Invitation>& list, const Session* session) {
        return std::ranges::count(list, session, &Invitation::other) == 1;
    }

    std::string StateFault() {
        std::set<std::string> names;
        std::size_t playing = 0;
        for (const Session* user : lobby_.Users()) {
            if (!user->IsUser() || CleanNickname(user->nick) != user->nick)
                return "a user has no proper nickname: " + user->nick;
            if (!names.insert(NicknameSkeleton(user->nick)).second || lobby_.FindUser(user->nick) != user)
                return "a nickname is there twice, or not found";
            playing += user->partner != nullptr ? 1 : 0;
            if (user->partner != nullptr && (user->partner->partner != user || user->partner == user))
                return "a game is not mutual";
            if (user->partner != nullptr && !user->invited.empty())
                return "a user in a game has an open invitation";
            for (const Invitation& invitation : user->invited)
                if (!invitation.other->IsUser() || !Holds(invitation.other->invitedBy, user))
                    return "an invitation is not mutual";
            for (const Invitation& invitation : user->invitedBy)
                if (!invitation.other->IsUser() || !Holds(invitation.other->invited, user))
                    return "an invitation has no inviter";
        }
        return playing == 2 * lobby_.Counts().games ? "" : "the games are not counted rightly";
    }

    // Delivers what is queued for the client in writes of odd sizes, and checks it as a client reads it.
    std::string OutputFault(Client& client) {
        Outbox& box = client.session.box;
        std::string sent;
        while (lobby_.Out().Unsent(box) > 0) {
            std::string some;
            for (const std::string_view part : lobby_.Out().Pending(box, 3))
                some += part;
            some.resize(some.size() > 7 ? some.size() - some.size() % 7 : some.size());
            lobby_.Out().Sent(box, some.size());
            sent += some;
        }
        std::string text;
        std::string_view rest = sent;
        while (const auto frame = client.heard.Next(rest)) {
            if (frame->kind == Frame::Kind::Text)
                text += frame->whole;
            else if (frame->kind == Frame::Kind::TooLong || !IsServerMessage(frame->name))
                return "a client is sent no message of the protocol: " + std::string(frame->name);
        }
        return client.heard.InMessage() ? "a client is sent half a message" : TextFault(text);
    }

    static bool IsServerMessage(std::string_view name) {
        static constexpr std::array<std::string_view, 12> kNames = {
            "changenick", "removenick", "addnick", "update", "oldver", "invite",
            "refuse",     "accept",     "play",    "end",    "sys",    "alert"};
        return std::ranges::find(kNames, name) != kNames.end();
    }

    // Whether the text begins with a name and a colon, as lines do, and the name looks like that of somebody
    // else than the speaker who was there before the line was said and still is.
    bool LooksSigned(std::string_view text) const {
        const std::size_t colon = text.find(':');
        if (colon == 0 || colon > kLongestNickname || text[colon - 1] == ' ')
            return false;
        const std::string name = NicknameSkeleton(text.substr(0, colon));
        return othersBefore_.contains(name) && Names().contains(name);
    }

    // However TCP cuts a line, its rest must not look like a line of somebody else.
    std::string CutFault(std::string_view line) const {
        for (std::size_t cut = 1; cut < line.size(); ++cut) {
            const std::string_view rest = line.substr(cut);
            if (LooksLikeConfirmation(rest) || LooksSigned(rest))
                return "the rest of a cut line looks like another line: " + std::string(rest);
        }
        return {};
    }

    std::string TextFault(std::string_view text) const {
        while (!text.empty()) {
            const std::size_t end = text.find("\r\n");
            if (end == std::string_view::npos)
                return "a line has no end";
            const std::string_view line = text.substr(0, end);
            if (line.starts_with(kConfirmation)) {
                const std::string_view nick = line.substr(kConfirmation.size());
                if (CleanNickname(nick) != nick)
                    return "a nickname is confirmed that none can have";
            } else if (LooksLikeConfirmation(line) || line.find(": ") == std::string_view::npos) {
                return "a line is not signed: " + std::string(line);
            }
            if (!line.starts_with(kConfirmation) && !CutFault(line).empty())
                return CutFault(line);
            text.remove_prefix(end + 2);
        }
        return {};
    }

    std::string_view bytes_;
    Time now_ = Time{} + std::chrono::hours(1);
    Lobby lobby_{FuzzLimits(), "Welcome"};
    Operator operator_{lobby_, "", [](const std::string&) {}};
    std::array<std::unique_ptr<Client>, 4> clients_;
    std::vector<std::unique_ptr<Client>> ghosts_;
    std::set<std::string> othersBefore_; // of all but who acts, before the last act, as skeletons
    std::uint64_t acknowledged_ = 0;
};

} // namespace tarveth
