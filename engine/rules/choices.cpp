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

bool HasDestination(const Game& game, int piece) {
    for (int column = 1; column <= kBoardSize; ++column)
        for (int row = 1; row <= kBoardSize; ++row) {
            const Square to{column, row};
            if (!game.Piece(piece).StandsOn(to) && JudgeMove(game, piece, to).refusal == Refusal::None)
                return true;
        }
    return false;
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

bool HasMove(const Game& game) {
    for (int i = 1; i <= game.PieceCount(); ++i) {
        const PieceRecord& piece = game.Piece(i);
        if (piece.InJail() ||
            JudgePick(game, {piece.X.ToInt16(), piece.Y.ToInt16()}).refusal != PickRefusal::None)
            continue;
        if (HasDestination(game, i))
            return true;
    }
    return false;
}

int JailSlotToReturn(const Game& game) {
    const int slot = game.Return.ReturnSlot;
    return game.GameState == kReturnPiece && slot <= game.JailCount() ? slot : 0;
}

} // namespace tarveth
