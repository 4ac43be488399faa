// The messages of which a board consists: how they are written, and what they change in the board of the
// program that receives them.
#pragma once

#include "engine/rules/modPieces.h"
#include "net/gamefields.h"

#include <string>
#include <string_view>

namespace tarveth {

struct Game;

// "P(" or "J(" and eleven values: the index in PieceTable or JailTable, then the record.
std::string PieceMessage(std::string_view head, std::size_t index, const PieceRecord& piece);

// Each of these changes the game as its message asks. It returns false and changes nothing when a field holds
// no number or one that is out of range. Whether the game is sound afterwards is for CheckGame to say.
bool ReadPieceSquare(Game& game, const GameFields& fields); // P(
bool ReadPieceLimits(Game& game, const GameFields& fields); // S(
bool ReadJailEntry(Game& game, const GameFields& fields);   // J(
bool ReadTurn(Game& game, const GameFields& fields);        // T(

// Whether nobody has moved yet on this board, in whatever layout.
bool IsFreshBoard(const Game& board);

// Makes the board into which a transfer is read: new pieces on the squares where the game has them, and an
// empty jail.
Game BoardToFill(const Game& game);

} // namespace tarveth
