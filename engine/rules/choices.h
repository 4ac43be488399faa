// What a click on each square would do for the side to move, by the same judgement as the click itself.
#pragma once

#include "engine/rules/modPieces.h"

#include <array>
#include <cstdint>

namespace tarveth {

enum class Choice : std::uint8_t {
    None,
    PickOwn,        // picks a piece of the side to move
    PickControlled, // picks an opposing piece in a zone of control
    Move,           // puts the picked piece on a free square
    Capture,        // puts it on a piece, which is taken
    WinningCapture, // the same, and the side to move has won by it
    Return,         // brings a piece back from the jail
};

// Gives what a click on a square of the board would do in the state that the game is in; None where it would
// be refused or would put the picked piece down again.
Choice JudgeChoice(const Game& game, Square square);

// By column and row, 1 to 8.
using ChoiceMap = std::array<std::array<Choice, kBoardSize + 1>, kBoardSize + 1>;

// Gives the choices of all squares while a piece is to be placed or returned. While one is to be picked, all
// are None: a player looks at one piece at a time then, and JudgeChoice judges that one.
ChoiceMap ListDestinations(const Game& game);

// Whether the side to move has any move at all.
bool HasMove(const Game& game);

// Gives the jail entry of the piece that comes back, 0 while none does or it has not been decided which.
int JailSlotToReturn(const Game& game);

} // namespace tarveth
