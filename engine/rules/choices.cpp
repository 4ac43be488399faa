#include "engine/rules/choices.h"

#include "engine/rules/Game.h"
#include "engine/rules/captures.h"
#include "engine/rules/moves.h"
#include "engine/rules/zones.h"

namespace tarveth {

namespace {

bool CaptureWins(const Game& game, int captured) {
    Game after; // without the history, which may be long
    after.Turn = game.Turn;
    after.PieceTable = game.PieceTable;
    after.JailTable = game.JailTable;
    SendToJail(after, captured);
    return FindVictory(after).winner == game.Turn;
}

Choice JudgePicking(const Game& game, Square square) {
    const PickVerdict verdict = JudgePick(game, square);
    if (verdict.refusal != PickRefusal::None)
        return Choice::None;
    return game.Piece(verdict.piece).Side == game.Turn ? Choice::PickOwn : Choice::PickControlled;
}

Choice JudgePlacing(const Game& game, Square square) {
    const int mover = game.CurPiece;
    if (mover < 1 || mover > game.PieceCount() || game.Piece(mover).StandsOn(square))
        return Choice::None;
    const Verdict verdict = JudgeMove(game, mover, square);
    if (verdict.refusal != Refusal::None)
        return Choice::None;
    if (verdict.captured == 0)
        return Choice::Move;
    return CaptureWins(game, verdict.captured) ? Choice::WinningCapture : Choice::Capture;
}

Choice JudgeReturning(const Game& game, Square square) {
    return JailSlotToReturn(game) != 0 && PieceOn(game, square) == 0 ? Choice::Return : Choice::None;
}

} // namespace

Choice JudgeChoice(const Game& game, Square square) {
    switch (game.GameState) {
    case kPickPiece:
        return JudgePicking(game, square);
    case kPlacePiece:
        return JudgePlacing(game, square);
    case kReturnPiece:
        return JudgeReturning(game, square);
    default:
        return Choice::None;
    }
}

ChoiceMap ListDestinations(const Game& game) {
    ChoiceMap choices{};
    if (game.GameState == kPickPiece)
        return choices;
    for (int column = 1; column <= kBoardSize; ++column)
        for (int row = 1; row <= kBoardSize; ++row)
            choices[static_cast<std::size_t>(column)][static_cast<std::size_t>(row)] =
                JudgeChoice(game, {column, row});
    return choices;
}

int JailSlotToReturn(const Game& game) {
    const int slot = game.Return.ReturnSlot;
    return game.GameState == kReturnPiece && slot <= game.JailCount() ? slot : 0;
}

} // namespace tarveth
