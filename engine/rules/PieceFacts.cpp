#include "engine/rules/PieceFacts.h"

#include "engine/rules/Game.h"
#include "engine/rules/checkgame.h"
#include "engine/rules/moves.h"

#include <algorithm>
#include <stdexcept>

namespace tarveth {

namespace {

Reach ReachWithin(int straightLimit, int diagonalLimit) {
    int diagonal = 0;
    while (diagonalLimit != 0 && diagonal < kLongestMove &&
           DiagonalDistance(diagonal + 1, diagonal + 1) <= straightLimit)
        ++diagonal;
    return {static_cast<std::uint8_t>(std::clamp(straightLimit, 0, kLongestMove)),
            static_cast<std::uint8_t>(diagonal)};
}

} // namespace

PieceFacts::PieceFacts(const Game& game) {
    if (const std::string problem = CheckGame(game); !problem.empty())
        throw std::invalid_argument(problem);
    barredAtFirst_.fill(kNoSquare);
    for (int i = 1; i <= kPieces; ++i)
        AddPiece(i, game.Piece(i));
}

void PieceFacts::AddPiece(int index, const PieceRecord& piece) {
    const auto i = static_cast<std::size_t>(index);
    reach_[0][i] = ReachWithin(piece.MaxCtlMove, piece.MaxCtlDiag);
    reach_[1][i] = ReachWithin(piece.MaxMove, piece.MaxDiag);
    if (const Square previous{piece.PrevX, piece.PrevY}; !piece.InJail() && previous.OnBoard())
        barredAtFirst_[i] = static_cast<std::int8_t>(SquareNumber(previous));
}

} // namespace tarveth
