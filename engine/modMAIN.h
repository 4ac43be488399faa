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

// The message of a new game. It is the longest of all messages.
inline constexpr std::string_view kToBeginPlay =
    "To begin play: click on the piece you'd like to move, then click on the location where you'd like to "
    "place the "
    "selected piece. To deselect a selected piece, click it again.";

// Where a position that replaces the game on the board comes from.
enum class PositionSource { File, Opponent };

class modMAIN {
public:
    // All of these outlive the object.
    modMAIN(Game& game, NetGame& net, const GameOptions& options, const Ports& ports);

    // Sets up a fresh game of the layout in the options, Blue to move.
    void NewGame();
    // Replaces the game on the board and its history by a position that CheckGame finds sound. To be called
    // between two passes. A position from a file is shown at once, and its side picks a piece. Before one
    // from the opponent, the log of the old game is written; the next pass shows the position.
    void SetUpPosition(Game position, PositionSource source);
    // Asks for a return that may be due and ends a turn that is over. To be called before the game is written
    // to a file, which cannot hold these states.
    void FinishTurn();
    // Ends the main loop: no pass follows. To be called when the program closes.
    void EndLoop() { SetGameState(kReset); }

    // Runs one pass of the main loop. False when the loop is to end (kReset).
    bool Pass();
    // Whether another pass would have something to do.
    bool HasWork() const;
    // Runs passes until nothing is left to do, but only so many that the window can handle other events in
    // between: true when more is left. A call from within a pass or a command does nothing, since passes
    // never nest.
    bool RunPasses();
    // Runs a command of the menus. In the middle of a pass or of another command, a running animation is
    // finished at once, and the command waits until the pass or the other command is over.
    void RunCommand(std::function<void()> command);
    // Runs a command that comes from the network. It waits as a command of the menus does, but a running
    // animation is not cut short.
    void RunWhenFree(std::function<void()> command) { gate_.Submit(std::move(command)); }
    // Whether a pass or a command is running, so that the caller is an event handled in its middle.
    bool Busy() const { return gate_.IsShut(); }

    // Deposits a square for the next pass, as a left click does. It is refused out of turn, off the board,
    // while a piece is moving, after the end of the game, while a square of the opponent's waits, and where a
    // piece is to return to a square that is taken.
    void DepositSquare(Square square);

    // Whether a left click on the square would pick a piece now.
    bool WouldPick(Square square) const;
    // Does what a left click on the picked piece does, which puts it down. Does nothing when the player has
    // picked none.
    void PutDownPiece();

    // Brings the game to the beginning of a turn before a board is sent or received: deselects a selected
    // piece, gives up a return that is due, ends a turn that is over, and drops squares that wait. This and
    // the next four are to be called between two passes.
    void SettleForTransfer();
    // Is called when the opponent begins to send a board. No squares are taken until SetUpPosition or
    // EndTransfer.
    void AwaitBoard();
    // Is called when a transfer breaks off: the game on the board goes on.
    void EndTransfer();
    // Is called when the opponent's program says, outside a transfer, whose turn it is. A game that is over
    // stays over.
    void TakeRemoteTurn(std::int16_t side);
    // Is called when the opponent's program says, without having sent a board, that play may begin. In the
    // middle of a turn this changes nothing.
    void TakeRemoteStart();

    // The steps of the machine, public for its tests. Other rooms call only the functions above.
    void SetGameState(std::int16_t value);
    // Gives the turn to a side: shows it on the turn label, then goes to kPickPiece.
    void SetTurn(std::int16_t side);
    void EndTurn();
    // Decides whether the last capture earns a return, and asks the user which piece if there is a choice.
    void CheckReturnDue();
    // Shows a refusal or a message of the game on the message label, and beeps.
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
    bool IsMyTurn() const;
    bool ReturnUndecided() const;

    Game& game_;
    NetGame& net_;
    const GameOptions& options_;
    Ports ports_;
    CommandGate gate_;
};

} // namespace tarveth
