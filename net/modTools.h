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
struct OpponentPort {
    virtual ~OpponentPort() = default;
    virtual void SendGameMessage(std::string_view inner) = 0;
    // Lines for the transcripts: a notice, and what the opponent has said in private.
    virtual void ShowNotice(std::string_view text) = 0;
    virtual void ShowPrivateLine(std::string_view text) = 0;
    virtual std::string OpponentNick() const = 0;
};

class modTools {
public:
    // All outlive the object; main and opponent may still be under construction.
    modTools(Game& game, NetGame& net, modMAIN& main, MainWindowPort& window, OpponentPort& opponent);

    // Handles in-game messages, one after the other. To be called between two passes. A message whose
    // arguments cannot be understood gives a notice and changes nothing; a text that is no in-game message is
    // ignored.
    void ParseGameMessages(std::string_view text);
    // Sends the board, on which both sides go on. A piece that is selected is put down first, and a return
    // that is due is given up.
    void SendBoard();

    // The opponent has agreed to a game and is going to send the board. Should anything else come instead, a
    // new game is begun for it; should the link end, the game there is goes on.
    void AwaitFirstBoard();

    void SetLocalBlue();
    void SetLocalRed();
    // The players change sides.
    void SwapSides();

    // Ends the game with the opponent: squares that wait and a board that has not arrived whole are dropped,
    // and the game goes on at this screen.
    void EndLink();

private:
    struct Message;
    static const Message kMessages[];
    using ReadChange = bool (*)(Game&, const GameFields&);

    // Each handles one message and returns false when its arguments cannot be understood.
    bool QueueSquare(const GameFields& fields);     // M(
    bool QueueReturn(const GameFields& fields);     // R(
    bool TakePieceSquare(const GameFields& fields); // P(
    bool TakePieceLimits(const GameFields& fields); // S(
    bool TakeJailEntry(const GameFields& fields);   // J(
    bool TakeTurn(const GameFields& fields);        // T(
    bool TakeCommand(const GameFields& fields);     // C(
    bool TakeLine(const GameFields& fields);        // X(

    static const Message* FindMessage(std::string_view text);
    void TakeSwap();
    void BeginWithoutBoard();
    void TakeBoard(const Game& board);
    bool Change(ReadChange read, const GameFields& fields);
    void BeginBoard();
    void FinishBoard();
    void LimitQueues();

    Game& game_;
    NetGame& net_;
    modMAIN& main_;
    MainWindowPort& window_;
    OpponentPort& opponent_;
    std::optional<Game> arriving_;  // the board between its "C(board)" and its "C(play)"
    bool awaitsFirstBoard_ = false; // a link has begun, and no message about the game has come yet
    bool sharesBoard_ = false;      // a board has been sent or received since the link began
};

} // namespace tarveth
