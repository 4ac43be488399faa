// The game between two programs: the messages in which a board, moves, returns, swaps and private lines
// travel.
#pragma once

#include "engine/modMAIN.h"
#include "net/gamefields.h"

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

    // Handles in-game messages, one after the other. To be called between two passes. What cannot be
    // understood gives a notice and changes nothing; what is no message of the game is passed over.
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
    struct Message;
    static const Message kMessages[];
    using ReadChange = bool (*)(Game&, const GameFields&);

    // One a message; false when its arguments cannot be understood.
    bool QueueSquare(const GameFields& fields);     // M(
    bool QueueReturn(const GameFields& fields);     // R(
    bool TakePieceSquare(const GameFields& fields); // P(
    bool TakePieceLimits(const GameFields& fields); // S(
    bool TakeJailEntry(const GameFields& fields);   // J(
    bool TakeTurn(const GameFields& fields);        // T(
    bool TakeCommand(const GameFields& fields);     // C(
    bool TakeLine(const GameFields& fields);        // X(

    static const Message* FindMessage(std::string_view text);
    bool Change(ReadChange read, const GameFields& fields);
    void BeginBoard();
    void FinishBoard();
    void LimitQueues();

    Game& game_;
    NetGame& net_;
    modMAIN& main_;
    MainWindowPort& window_;
    OpponentPort& opponent_;
    std::optional<Game> arriving_; // the board between its "C(board)" and its "C(play)"
};

} // namespace tarveth
