// The turn machine. Windows and the network only deposit squares; Pass hands a square to the handler of the
// current state, and tells the ports what the rules made of it. What a rule allows and does is in
// engine/rules. modMAIN.cpp: states and passes. handlers.cpp: what a square does. transfer.cpp: positions
// from elsewhere.
#pragma once

#include "engine/CommandGate.h"
#include "engine/GameOptions.h"
#include "engine/NetGame.h"
#include "engine/ports.h"
#include "engine/rules/Game.h"

#include <cstdint>
#include <functional>
#include <string_view>
#include <utility>

namespace tarveth {

// What a new game says; the longest of all messages.
inline constexpr std::string_view kToBeginPlay =
    "To begin play: click on the piece you'd like to move, then click on the location where you'd like to "
    "place the "
    "selected piece. To deselect a selected piece, click it again.";

// Where a position comes from that takes the place of the game on the board.
enum class PositionSource { File, Opponent };

class modMAIN {
public:
    // All of these outlive the object.
    modMAIN(Game& game, NetGame& net, const GameOptions& options, const Ports& ports);

    // Sets up a fresh game of the layout in the options, Blue to move.
    void NewGame();
    // Puts a position that CheckGame finds sound in the place of the game on the board, its history with it.
    // To be called between two passes. One from a file is shown at once, and its side picks a piece. For one
    // from the opponent's program the log of the game there was is written first; the next pass shows it.
    void SetUpPosition(Game position, PositionSource source);
    // Ends a turn that is over, and asks first for a return that is due, so that the game can be written to a
    // file, which holds no such state.
    void FinishTurn();
    // The program is about to end: no pass follows.
    void EndLoop() { SetGameState(kReset); }

    // One pass of the main loop. False when the loop is to end (state 0).
    bool Pass();
    // Whether another pass has something to do. At rest it has not.
    bool HasWork() const;
    // Passes until there is nothing left to do, or for now: true when there is more. A call from within a
    // pass or a command comes back at once: passes never nest.
    bool RunPasses();
    // Runs a command of the menus. In the middle of a pass or of another command the running animation is
    // brought to its end, and the command waits until that is over.
    void RunCommand(std::function<void()> command);
    // The same for what comes from outside: the running animation takes its time.
    void RunWhenFree(std::function<void()> command) { gate_.Submit(std::move(command)); }
    // A pass or a command is running: this event is being handled while it waits.
    bool Busy() const { return gate_.IsShut(); }

    // Deposits a square for the next pass as a left click on it does: refused out of turn, off the board,
    // while a piece is moving, after the end of the game, while a square of the opponent's waits, and where a
    // returned piece finds the square taken.
    void DepositSquare(Square square);

    // Brings the game to rest between two turns: a selected piece is put down, a return that is due is given
    // up, a turn that is over ends, and squares that wait are forgotten. To be called between two passes, as
    // the four below.
    void SettleForTransfer();
    // A board is going to arrive; until SetUpPosition or EndTransfer, no squares are taken.
    void AwaitBoard();
    // There is no more of it to come: the game there is goes on.
    void EndTransfer();
    // The opponent's program says whose turn it is, outside a transfer. A game that is over stays over.
    void TakeRemoteTurn(std::int16_t side);
    // It says that play may begin without having sent a board. In the middle of a turn that changes nothing.
    void TakeRemoteStart();

    // The steps of the machine, for itself and its tests. Other rooms call the doors above.
    void SetGameState(std::int16_t value);
    // Hands the move to a side: turn label, then state 1.
    void SetTurn(std::int16_t side);
    void EndTurn();
    // Decides whether the last capture earns a return, and asks which where there is a choice.
    void CheckReturnDue();
    // The message label and the beep: every refusal and game message.
    void ShowStatus(std::string_view text);

private:
    void HandleBoardTransfer();
    void HandleIdle();
    void HandleSquare();
    void SetPendingSquare(Square square);
    void PickPiece();
    void PlacePiece();
    void MovePiece(int index, Square to, int captured);
    void ReturnPiece();
    bool CheckVictory();
    void EchoClick();
    void TakeRemoteSquare();
    void TakeRemoteReturn(Square square, const ReturnChoice& choice);
    bool MayPlaceReturn() const;
    bool ReturnUndecided() const;

    Game& game_;
    NetGame& net_;
    const GameOptions& options_;
    Ports ports_;
    CommandGate gate_;
};

} // namespace tarveth
