// The game's record: one line of text for each move, capture and return. The reader accepts exactly what the
// writer writes about pieces on the board.
#pragma once

#include "engine/rules/modPieces.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace tarveth {

// Gives column number and row letter, as in "4D". Rows outside 1 to 8 give the characters before "A" and
// after "H".
std::string SquareText(int column, int row);

// Gives the line for the last move of a piece, as in "R:RO 5C-4D".
std::string MoveText(const Game& game, int index);

// Gives the text for a captured piece, as in "cBP".
std::string CaptureText(const Game& game, int index);

// Append one line to the game's history. A return is one of a piece of the kind in ReturnKind: "  BP r2G".
void HistoryAddMove(Game& game, int index);
void HistoryAddCapture(Game& game, int mover, int captured);
void HistoryAddReturn(Game& game, Square square);

// A piece as the record names it.
struct NamedPiece {
    Side side = NoSide;
    PieceKind kind{};
    friend bool operator==(const NamedPiece&, const NamedPiece&) = default;
};

// "B:RP 5C-4D cBO": Blue moves a Pawn of Red's, which takes an Officer of Blue's.
struct MoveLine {
    Side turn = NoSide; // who moves
    NamedPiece piece;
    Square from, to;
    std::optional<NamedPiece> captured;
    friend bool operator==(const MoveLine&, const MoveLine&) = default;
};

// "  BP r2G": an Officer or a Pawn comes back.
struct ReturnLine {
    NamedPiece piece;
    Square to;
    friend bool operator==(const ReturnLine&, const ReturnLine&) = default;
};

// Why a line is none of the record.
struct NotationFault {
    std::size_t place = 0; // of the first wrong character, from 1; one past the end of a line cut short
    std::string_view reason = {}; // what should be there, as in "a side, B or R"
    friend bool operator==(const NotationFault&, const NotationFault&) = default;
};

using HistoryLine = std::variant<MoveLine, ReturnLine, NotationFault>;

HistoryLine ReadHistoryLine(std::string_view line);

} // namespace tarveth
