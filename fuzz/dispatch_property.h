// What must hold for a game whose server sends any bytes: its network play is in a state that exists, its
// list of users has bounds, the game on the board is sound, whatever it sends is well-formed, and it does not
// matter where the bytes are cut. Shared by the fuzz target and the test that replays its corpus.
#pragma once

#include "engine/rules/checkgame.h"
#include "net/wire/framing.h"
#include "tests/net/TestClient.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace tarveth::test {

// The first byte says what the person does (see Act) and answers, the second one where the rest, which the
// server sends, is cut.
class DispatchPlay {
public:
    explicit DispatchPlay(std::string_view bytes) {
        if (bytes.size() > 2) {
            person_ = static_cast<unsigned char>(bytes[0]);
            stream_ = bytes.substr(2);
            cut_ = static_cast<unsigned char>(bytes[1]) % (stream_.size() + 1);
        }
    }

    // What is broken; nothing if all is well.
    std::string Fault() const {
        Strings whole;
        Strings cut;
        std::string fault = HearAll({stream_}, whole);
        if (fault.empty())
            fault = HearAll({stream_.substr(0, cut_), stream_.substr(cut_)}, cut);
        if (fault.empty() && whole != cut)
            fault = "cut elsewhere, the same bytes give other notices";
        return fault.empty() ? FaultOfPlay() : fault;
    }

private:
    void Answer(TestClient& c) const {
        for (unsigned bit = 0; bit < 4; ++bit)
            c.window.answers.push_back(((person_ >> bit) & 1U) != 0);
    }

    // Without a pass before the end, as if it all came at once.
    std::string HearAll(std::initializer_list<std::string_view> batches, Strings& notices) const {
        TestClient c;
        Answer(c);
        for (const std::string_view batch : batches)
            c.client.DispatchMessages(batch);
        std::ranges::copy_if(c.window.lines, std::back_inserter(notices),
                             [](const std::string& line) { return line.starts_with("notice|"); });
        c.RunPasses();
        return Fault(c);
    }

    // In small pieces, with passes between them and a person who does something, too.
    std::string FaultOfPlay() const {
        constexpr std::size_t kPiece = 24;
        TestClient c;
        Answer(c);
        std::string fault;
        for (std::size_t at = 0; at < stream_.size() && fault.empty(); at += kPiece) {
            c.socket.TellData(stream_.substr(at, kPiece));
            c.RunPasses();
            Act(c, person_ >> 4U);
            c.RunPasses();
            fault = Fault(c);
        }
        c.client.Close();
        c.RunPasses();
        return fault.empty() ? Fault(c) : fault;
    }

    static void Act(TestClient& c, unsigned act) {
        if ((act & 1U) != 0) {
            c.client.SelectUser(0);
            c.client.Invite();
        }
        if ((act & 2U) != 0)
            c.main.DepositSquare({4, c.game.GameState == kPickPiece ? 2 : 3});
        if ((act & 4U) != 0)
            c.client.EnterLine("/p (hello");
        if ((act & 8U) != 0)
            c.client.Swap();
    }

    static std::string Fault(const TestClient& c) {
        const std::int16_t link = c.client.GameLinkState();
        if (link != kLinkIdle && link != kLinkInviting && link != kLinkInGame)
            return "a link in a state that does not exist";
        if (c.net.InGame != (link == kLinkInGame) || c.client.OpponentNick().empty() == c.net.InGame)
            return "a game without a link, a link without an opponent, or an opponent without a game";
        if (c.client.Users().Entries().size() > UserList::kMostEntries)
            return "too many users";
        if (std::string fault = CheckGame(c.game); !fault.empty())
            return fault;
        return SentFault(c.socket.sent);
    }

    static std::string SentFault(const Strings& sent) {
        static constexpr std::array<std::string_view, 8> kNames = {
            "clientver", "nick", "sendnicks", "invite", "refuse", "accept", "end", "play"};
        for (const std::string& text : sent) {
            Framer framer;
            std::string_view rest = text;
            const auto frame = framer.Next(rest);
            const bool plain = frame && frame->kind == Frame::Kind::Text;
            const bool message = frame && frame->kind == Frame::Kind::Message &&
                                 std::ranges::find(kNames, frame->name) != kNames.end();
            if (!rest.empty() || !(plain || message))
                return "the server is sent what is neither a message nor text: " + text;
        }
        return {};
    }

    unsigned person_ = 0;
    std::string_view stream_;
    std::size_t cut_ = 0;
};

} // namespace tarveth::test
