#include "storage/playline.h"

#include "engine/rules/Game.h"
#include "engine/rules/captures.h"
#include "engine/rules/moves.h"
#include "engine/rules/zones.h"

namespace tarveth {

namespace {

bool Is(const PieceRecord& piece, const NamedPiece& named) {
    return piece.Side == named.side && piece.Kind == named.kind;
}

bool Names(const std::optional<NamedPiece>& named, const Game& game, int index) {
    return named.has_value() == (index != 0) && (index == 0 || Is(game.Piece(index), *named));
}

// The side that has the turn may have it again when it has left out a return.
bool MayMove(const Game& game, Side side) {
    return game.GameState == kReturnPiece || (game.GameState == kPickPiece && game.Turn == side);
}

// Gives the piece that makes the move by the rules; 0 when they do not allow it.
int FindMover(const Game& game, const MoveLine& move) {
    const PickVerdict pick = JudgePick(game, move.from);
    if (pick.refusal != PickRefusal::None || !Is(game.Piece(pick.piece), move.piece))
        return 0;
    const Verdict verdict = JudgeMove(game, pick.piece, move.to);
    const bool allowed = verdict.refusal == Refusal::None && Names(move.captured, game, verdict.captured);
    return allowed ? pick.piece : 0;
}

bool PlayMove(Game& game, const MoveLine& move) {
    if (!MayMove(game, move.turn))
        return false;
    const std::int16_t turn = game.Turn;
    game.Turn = move.turn;
    const int mover = FindMover(game, move);
    if (mover == 0) {
        game.Turn = turn;
        return false;
    }
    const int captured = PieceOn(game, move.to);
    BeginMove(game, mover);
    FinishMove(game, mover, move.to, captured);
    game.GameState = kPickPiece;
    if (captured != 0 && FindVictory(game).winner != NoSide)
        game.GameState = kGameOver;
    else if (captured != 0 && FindReturnCandidates(game, captured).Any())
        game.GameState = kReturnPiece;
    else
        game.Turn = Opponent(game.Turn);
    return true;
}

bool PlayReturn(Game& game, const ReturnLine& line) {
    if (game.GameState != kReturnPiece || game.Turn != line.piece.side)
        return false;
    const ReturnCandidates candidates = FindReturnCandidates(game, game.Return.CapturedPiece);
    if ((line.piece.kind == Officer ? candidates.officerSlot : candidates.pawnSlot) == 0)
        return false;
    DecideReturn(game, candidates, line.piece.kind);
    if (tarveth::ReturnPiece(game, line.to) == 0)
        return false;
    game.GameState = kPickPiece;
    game.Turn = Opponent(game.Turn);
    return true;
}

bool MayHaveLeft(const PieceRecord& piece, Square square) {
    return (piece.X == -square.column && piece.Y == -square.row) || piece.X == kUnknownPlace;
}

bool HasSameLimits(const PieceRecord& a, const PieceRecord& b) {
    return a.MaxMove == b.MaxMove && a.MaxDiag == b.MaxDiag && a.MaxCtlMove == b.MaxCtlMove &&
           a.MaxCtlDiag == b.MaxCtlDiag;
}

// Gives the piece off the board that was captured on the square, 0 for none. Which one of a side and kind it
// is makes no difference, unless their limits differ, as they may in a file that somebody has edited.
struct CapturedThere {
    int piece = 0;
    bool ambiguous = false;
};
CapturedThere FindCaptured(const Game& game, const NamedPiece& named, Square square) {
    CapturedThere found;
    for (int i = 1; i <= game.PieceCount(); ++i) {
        const PieceRecord& piece = game.Piece(i);
        if (!piece.InJail() || !Is(piece, named) || !MayHaveLeft(piece, square))
            continue;
        found.ambiguous |= found.piece != 0 && !HasSameLimits(game.Piece(found.piece), piece);
        if (found.piece == 0 || game.Piece(found.piece).X == kUnknownPlace)
            found.piece = i;
    }
    return found;
}

// Puts the piece that a move has captured back on its square, and takes its entry out of the jail.
Undoing UndoCapture(Game& game, const NamedPiece& captured, Square square) {
    if (game.JailCount() == 0 || !Is(game.JailTable.back(), captured) ||
        !MayHaveLeft(game.JailTable.back(), square))
        return Undoing::DoesNotFit;
    const CapturedThere there = FindCaptured(game, captured, square);
    if (there.piece == 0 || there.ambiguous)
        return there.ambiguous ? Undoing::Ambiguous : Undoing::DoesNotFit;
    game.Piece(there.piece).X = square.column;
    game.Piece(there.piece).Y = square.row;
    game.JailTable.pop_back();
    return Undoing::Done;
}

// Bars the piece moved last from going straight back, and no other.
bool RestoreBar(Game& game, const MoveLine* before) {
    ClearReflection(game, 0);
    if (before == nullptr)
        return true;
    const int last = PieceOn(game, before->to);
    if (last == 0 || !Is(game.Piece(last), before->piece))
        return false;
    game.Piece(last).PrevX = static_cast<std::int16_t>(before->from.column);
    game.Piece(last).PrevY = static_cast<std::int16_t>(before->from.row);
    return true;
}

// Moves the piece back.
Undoing PutBack(Game& game, const MoveLine& move) {
    const int mover = PieceOn(game, move.to);
    if (mover == 0 || !Is(game.Piece(mover), move.piece) || PieceOn(game, move.from) != 0)
        return Undoing::DoesNotFit;
    game.Piece(mover).X = move.from.column;
    game.Piece(mover).Y = move.from.row;
    return move.captured ? UndoCapture(game, *move.captured, move.to) : Undoing::Done;
}

// Whether the rules allow the move and leave the turn as it is in `game`. A side that leaves out a return may
// keep it.
bool LeadsTo(Game before, const MoveLine& move, const Game& game) {
    return PlayMove(before, move) && (before.Turn == game.Turn || before.GameState == kReturnPiece);
}

// Whether the entry could be that of the captured piece, which took the place of the one that has come back:
// that one was the first of its side and kind.
bool IsFirst(const Game& game, int slot, const NamedPiece& returned) {
    for (int i = 1; i < slot; ++i)
        if (Is(game.Jailed(i), returned))
            return false;
    return true;
}

// Gives where in the jail the piece that came back had its entry; 0 for nowhere, -1 for several places.
int FindReturnSlot(const Game& game, const ReturnLine& line, const MoveLine& capture) {
    int found = 0;
    for (int slot = 1; slot <= game.JailCount(); ++slot)
        if (Is(game.Jailed(slot), *capture.captured) && MayHaveLeft(game.Jailed(slot), capture.to) &&
            IsFirst(game, slot, line.piece))
            found = found == 0 ? slot : -1;
    return found;
}

} // namespace

bool PlayLine(Game& game, const HistoryLine& line) {
    if (const auto* move = std::get_if<MoveLine>(&line))
        return PlayMove(game, *move);
    const auto* returned = std::get_if<ReturnLine>(&line);
    return returned != nullptr && PlayReturn(game, *returned);
}

Undoing UndoMove(Game& game, const MoveLine& move, const MoveLine* before) {
    Game undone = game;
    const Undoing undoing = PutBack(undone, move);
    if (undoing != Undoing::Done)
        return undoing;
    undone.Turn = move.turn;
    undone.GameState = kPickPiece;
    if (!RestoreBar(undone, before))
        return Undoing::BeforeDoesNotFit;
    if (!LeadsTo(undone, move, game))
        return Undoing::DoesNotFit;
    game = std::move(undone);
    return Undoing::Done;
}

Undoing UndoReturn(Game& game, const ReturnLine& line, const MoveLine& capture) {
    const int piece = PieceOn(game, line.to);
    if (piece == 0 || !Is(game.Piece(piece), line.piece) || capture.turn != line.piece.side ||
        !capture.captured)
        return Undoing::DoesNotFit;
    const int slot = FindReturnSlot(game, line, capture);
    if (slot <= 0)
        return slot == 0 ? Undoing::DoesNotFit : Undoing::Ambiguous;
    PieceRecord& returned = game.Piece(piece);
    returned.X = returned.Y = kUnknownPlace;
    game.JailTable.push_back(game.Jailed(slot));
    game.JailTable[static_cast<std::size_t>(slot)] = returned;
    game.Turn = line.piece.side;
    game.GameState = kReturnPiece;
    return Undoing::Done;
}

} // namespace tarveth
