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

// Each changes the game as its message asks; false, and nothing changed, when a field holds no number or none
// that can stand there. Whether the game is sound afterwards is for CheckGame.
bool ReadPieceSquare(Game& game, const GameFields& fields); // P(
bool ReadPieceLimits(Game& game, const GameFields& fields); // S(
bool ReadJailEntry(Game& game, const GameFields& fields);   // J(
bool ReadTurn(Game& game, const GameFields& fields);        // T(

// What a board fills that is going to arrive: new pieces, none of them in the jail, on the squares that the
// game has them on.
Game BoardToFill(const Game& game);

} // namespace tarveth
