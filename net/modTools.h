// The game between two programs: the messages in which a board, moves, returns, swaps and private lines
// travel.
#pragma once

#include "engine/modMAIN.h"

#include <optional>
#include <string>
#include <string_view>

namespace tarveth {

// The opponent's program, as the in-game messages need it.
struct OpponentPort : NetworkPort {
    // A private line of the opponent's for the transcripts.
    virtual void ShowPrivateLine(std::string_view text) = 0;
};

class modTools {
public:
    // All outlive the object; main and opponent may still be under construction.
    modTools(Game& game, NetGame& net, modMAIN& main, MainWindowPort& window, OpponentPort& opponent);

    // Handles in-game messages, one after the other. To be called between two passes.
    void ParseGameMessages(std::string_view text);
    // Sends the board on which both play on, ending what was begun on it: a selection, a return that is due.
    void SendBoard();

    void SetLocalBlue();
    void SetLocalRed();
    // The players change sides.
    void SwapSides();

    // There is no opponent any more: what was on the way from him is dropped, and the game goes on at this
    // screen.
    void EndLink();

private:
    Game& game_;
    NetGame& net_;
    modMAIN& main_;
    MainWindowPort& window_;
    OpponentPort& opponent_;
    std::optional<Game> beforeBoard_; // while a board arrives: what is played on if it does not
};

} // namespace tarveth
