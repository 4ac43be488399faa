// What must hold for a game whose opponent's program sends any messages: after each the game is sound, it
// comes to rest, and it grows no more than the messages do. Shared by the fuzz target and the test that
// replays its corpus.
#pragma once

#include "engine/rules/checkgame.h"
#include "net/modTools.h"
#include "tests/RecordingPort.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace tarveth {

// Each line is a text of messages, or, behind a "!", what happens here: "!p" the passes, "!n" a new game,
// "!b" the board is sent, "!s" sides are swapped, "!e" the link ends and another begins, "!34" a click on
// column 3, row 4.
class GameMessagesPlay {
public:
    explicit GameMessagesPlay(std::string_view text) : text_(text) {
        Port.game = &Board;
        options_.AnimateMoves = 0;
        opponent_.tools = &tools_;
        net_.NetConnected = net_.InGame = true;
        main_.NewGame();
    }

    // What is broken; nothing if all is well.
    std::string Fault() {
        std::string_view rest = text_;
        while (!rest.empty()) {
            const std::string_view line = rest.substr(0, rest.find('\n'));
            rest.remove_prefix(std::min(line.size() + 1, rest.size()));
            if (std::string fault = LineFault(line); !fault.empty())
                return fault;
        }
        return Settle() ? CheckGame(Board) : "the game does not come to rest";
    }

    Game Board;
    test::RecordingPort Port;

private:
    struct Opponent : NetworkPort, OpponentPort {
        test::RecordingPort& port;
        modTools* tools = nullptr;

        explicit Opponent(test::RecordingPort& recorded) : port(recorded) {}
        void SendGameMessage(std::string_view inner) override { port.SendGameMessage(inner); }
        void SendBoard() override { tools->SendBoard(); }
        void AnnounceVictory(bool blueWon) override { port.AnnounceVictory(blueWon); }
        void ShowNotice(std::string_view text) override { port.ShowNotice(text); }
        void ShowPrivateLine(std::string_view) override {}
        std::string OpponentNick() const override { return "Bob"; }
    };

    std::string LineFault(std::string_view line) {
        if (!line.starts_with('!'))
            main_.RunWhenFree([&] { tools_.ParseGameMessages(line); });
        else if (line.size() > 1 && !Act(line.substr(1)))
            return "the game does not come to rest";
        if (Port.notices.size() > text_.size() || Board.lstHistory.size() > text_.size() ||
            net_.RemoteX.Text().size() > 2 * text_.size())
            return "there is more than was sent";
        return CheckGame(Board);
    }

    bool Act(std::string_view act) {
        switch (act[0]) {
        case 'p':
            return Settle();
        case 'n':
            main_.RunCommand([this] { main_.NewGame(); });
            break;
        case 'b':
            main_.RunCommand([this] { tools_.SendBoard(); });
            break;
        case 's':
            main_.RunCommand([this] { tools_.SwapSides(); });
            break;
        case 'e':
            main_.RunCommand([this] { tools_.EndLink(); });
            break;
        default:
            if (act.size() > 1)
                main_.DepositSquare({act[0] - '0', act[1] - '0'});
        }
        return true;
    }

    bool Settle() {
        std::size_t most = text_.size() + 10;
        while (most > 0 && main_.RunPasses())
            --most;
        return most > 0 && !main_.HasWork();
    }

    std::string_view text_;
    NetGame net_;
    GameOptions options_;
    Opponent opponent_{Port};
    modMAIN main_{Board, net_, options_, Ports{Port, Port, Port, Port, opponent_}};
    modTools tools_{Board, net_, main_, Port, opponent_};
};

// The same messages must also give the same game again.
inline std::string GameMessagesFault(std::string_view text) {
    GameMessagesPlay play(text);
    if (std::string fault = play.Fault(); !fault.empty())
        return fault;
    GameMessagesPlay again(text);
    again.Fault();
    return play.Board == again.Board && play.Port.notices == again.Port.notices ? ""
                                                                                : "the second game differs";
}

} // namespace tarveth
