// The turn state machine. Windows and the network only deposit squares; Pass hands a square to the handler of
// the current state. The handlers stand in moves.cpp, zones.cpp, captures.cpp and remote.cpp, by their rule.
#pragma once

#include "engine/Game.h"
#include "engine/NetGame.h"
#include "engine/ports.h"
#include "storage/settings.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tarveth {

// GameState                                  prompt           a pending square     an idle pass
inline constexpr std::int16_t kReset = 0;        // none           -                    ends the loop
inline constexpr std::int16_t kPickPiece = 1;    // Pick piece     PickPiece            -
inline constexpr std::int16_t kPlacePiece = 2;   // Place piece    PlacePiece           -
inline constexpr std::int16_t kReturnPiece = 3;  // Return piece   ReturnPiece          see ReturnUndecided
inline constexpr std::int16_t kAllowReturn = 4;  // Allow Return   dropped              CheckReturnDue
inline constexpr std::int16_t kTurnOver = 5;     // as it was      dropped              EndTurn
inline constexpr std::int16_t kGetBoard = 6;     // Get Board      dropped              -
inline constexpr std::int16_t kBoardArrived = 7; // as it was      dropped              goes on to 1
inline constexpr std::int16_t kGameOver = 8;     // Game Over      dropped              -

// What a new game says; the longest of all messages.
inline constexpr std::string_view kToBeginPlay =
    "To begin play: click on the piece you'd like to move, then click on the location where you'd like to "
    "place the "
    "selected piece. To deselect a selected piece, click it again.";

class modMAIN {
public:
    // All of these outlive the object.
    modMAIN(Game& game, NetGame& net, const Settings& settings, const Ports& ports);

    // Sets up a fresh game of the layout in the settings, Blue to move.
    void NewGame();

    void SetGameState(std::int16_t value);
    // Hands the move to a side: turn label, then state 1.
    void SetTurn(std::int16_t side);
    void EndTurn();
    // The message label and the beep: every refusal and game message.
    void ShowStatus(std::string_view text);

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
    void RunWhenFree(std::function<void()> command);
    // A pass or a command is running: this event is being handled while it waits.
    bool Busy() const { return busy_; }

    // Deposits a square for the next pass as a left click on it does: refused out of turn, off the board,
    // while a piece is moving, after the end of the game, while a square of the opponent's waits, and where a
    // returned piece finds the square taken.
    void DepositSquare(Square square);

    // Brings the game to rest between two turns: a selected piece is put down, a return that is due is given
    // up, a turn that is over ends, and squares that wait are forgotten. To be called between two passes, as
    // the three below.
    void SettleForTransfer();
    // A board is going to arrive; until it has, no squares are taken.
    void AwaitBoard();
    // It has arrived and is sound: it takes the place of the game, whose log is written.
    void TakeBoard(Game board);
    // There is no more of it to come: the game there is goes on.
    void EndTransfer();

    // True when no piece stands on the pending square.
    bool IsSquareFree() const;

    // The handlers of a pending square; Pass calls them.
    void PickPiece();
    void PlacePiece();
    void ReturnPiece();
    void CheckReturnDue();
    // True when a side has won; tells it.
    bool CheckVictory();

private:
    void RunWaitingCommands();
    bool MayPlaceReturn() const;
    bool ReturnUndecided() const;
    void HandleBoardTransfer();
    void HandleIdle();
    void HandleSquare();
    void EchoClick();
    void TakeRemoteSquare();
    void TakeRemoteReturn();
    bool IsPossibleReturn(int piece, int slot) const;
    void MovePiece(int index, Square to);
    void CapturePiece(int mover, int captured, Square to);
    void RelocatePiece(int index, Square to);

    Game& game_;
    NetGame& net_;
    const Settings& settings_;
    Ports ports_;
    bool busy_ = false;
    std::vector<std::function<void()>> waitingCommands_;
};

} // namespace tarveth
