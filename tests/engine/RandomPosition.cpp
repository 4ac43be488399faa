#include "tests/engine/RandomPosition.h"

#include "engine/modMAIN.h"
#include "engine/rules/captures.h"
#include "engine/rules/moves.h"

namespace tarveth::test {

namespace {

std::vector<Square> ShuffledSquares(Dice& dice) {
    std::vector<Square> squares;
    for (int row = 1; row <= kBoardSize; ++row)
        for (int column = 1; column <= kBoardSize; ++column)
            squares.push_back({column, row});
    dice.Shuffle(squares);
    return squares;
}

void SetOut(Game& game, Dice& dice) {
    CreatePieces(game);
    const std::vector<Square> squares = ShuffledSquares(dice);
    const int jailChance = dice.Between(0, 70);
    std::vector<int> jailed;
    for (int i = 1; i <= kPieces; ++i) {
        const Square square = squares[static_cast<std::size_t>(i)];
        SetPieceSquare(game, i, square.column, square.row, 0, 0);
        if (dice.Percent(jailChance))
            jailed.push_back(i);
    }
    dice.Shuffle(jailed);
    for (const int index : jailed)
        SendToJail(game, index);
    game.Turn = dice.Percent(50) ? Blue : Red;
    game.GameState = kPickPiece;
}

void SetPrevious(Game& game, Dice& dice, int index) {
    PieceRecord& piece = game.Piece(index);
    piece.PrevX = static_cast<std::int16_t>(piece.X.ToInt16() + dice.Between(-2, 2));
    piece.PrevY = static_cast<std::int16_t>(piece.Y.ToInt16() + dice.Between(-2, 2));
}

void SetUnusualLimits(PieceRecord& piece, Dice& dice) {
    for (std::int16_t* limit : {&piece.MaxMove, &piece.MaxDiag, &piece.MaxCtlMove, &piece.MaxCtlDiag})
        *limit = static_cast<std::int16_t>(dice.Between(-1, 9));
}

} // namespace

Game RandomOrdinaryPosition(Dice& dice) {
    Game game;
    do
        SetOut(game, dice);
    while (FindVictory(game).winner != NoSide);
    const int last = dice.Between(1, kPieces);
    SetPrevious(game, dice, last);
    ClearReflection(game, last);
    return game;
}

Game RandomPosition(Dice& dice) {
    Game game = RandomOrdinaryPosition(dice);
    const int unusual = dice.Percent(50) ? dice.Between(0, 60) : 0;
    for (int i = 1; i <= kPieces; ++i) {
        if (dice.Percent(unusual))
            SetPrevious(game, dice, i);
        if (dice.Percent(unusual))
            SetUnusualLimits(game.Piece(i), dice);
    }
    return game;
}

} // namespace tarveth::test
