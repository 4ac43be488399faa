#include "engine/rules/checkgame.h"

#include "engine/rules/Game.h"
#include "engine/rules/SquareSet.h"

#include <array>

namespace tarveth {

namespace {

bool IsWhole(Currency value) {
    return value.Raw() % Currency::kScale == 0;
}

bool HasSideAndKind(const PieceRecord& piece) {
    return (piece.Side == Blue || piece.Side == Red) && piece.Kind >= Master && piece.Kind <= Pawn;
}

bool IsOffBoard(const PieceRecord& piece) {
    return piece.X < 0 && piece.Y < 0;
}

// Coordinates are compared as they are, since converting large ones to 16 bits throws.
bool IsOnSquare(const PieceRecord& piece) {
    const auto inside = [](Currency value) { return value >= 1 && value <= kBoardSize && IsWhole(value); };
    return inside(piece.X) && inside(piece.Y);
}

std::string CheckPieces(const Game& game) {
    SquareSet taken = 0;
    for (int i = 1; i <= kPieces; ++i) {
        const PieceRecord& piece = game.Piece(i);
        const auto fault = [i](const char* what) { return "piece " + std::to_string(i) + what; };
        if (!HasSideAndKind(piece))
            return fault(" has no side or kind");
        if (IsOffBoard(piece) || (game.Animating && i == game.AnimatedPiece))
            continue;
        if (!IsOnSquare(piece))
            return fault(" stands neither on a square nor in the jail");
        const SquareSet square = SetOf(Square{piece.X.ToInt16(), piece.Y.ToInt16()});
        if ((taken & square) != 0)
            return fault(" stands on another piece");
        taken |= square;
    }
    return {};
}

std::string CheckJail(const Game& game) {
    std::array<std::array<int, Pawn + 1>, Red + 1> offBoard{}; // pieces without a jail entry so far
    const auto unmatched = [&](const PieceRecord& piece) -> int& {
        return offBoard[static_cast<std::size_t>(piece.Side)][static_cast<std::size_t>(piece.Kind)];
    };
    for (int i = 1; i <= kPieces; ++i)
        if (IsOffBoard(game.Piece(i)))
            ++unmatched(game.Piece(i));
    for (int slot = 1; slot <= game.JailCount(); ++slot) {
        const PieceRecord& jailed = game.Jailed(slot);
        if (!HasSideAndKind(jailed) || !IsOffBoard(jailed))
            return "jail entry " + std::to_string(slot) + " is no captured piece";
        if (--unmatched(jailed) < 0)
            return "jail entry " + std::to_string(slot) + " has no piece off the board";
    }
    return {};
}

std::string CheckTurn(const Game& game) {
    if (game.Turn != Blue && game.Turn != Red)
        return "it is nobody's turn";
    if (game.GameState < kReset || game.GameState > kGameOver)
        return "there is no state " + std::to_string(game.GameState);
    if (game.ClickX != 0 || game.ClickY != 0)
        if (!game.PendingSquare().OnBoard())
            return "the square waiting is not on the board";
    if (game.GameState == kPlacePiece &&
        (game.CurPiece < 1 || game.CurPiece > kPieces || IsOffBoard(game.Piece(game.CurPiece))))
        return "the selected piece is not on the board";
    return {};
}

} // namespace

std::string CheckGame(const Game& game) {
    if (game.PieceCount() != kPieces)
        return "there are not 26 pieces";
    if (game.JailTable.empty() || game.JailCount() > kPieces)
        return "the jail has no such size";
    for (const auto check : {CheckPieces, CheckJail, CheckTurn})
        if (std::string problem = check(game); !problem.empty())
            return problem;
    return {};
}

} // namespace tarveth
