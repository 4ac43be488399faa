#include "engine/rules/captures.h"

#include "engine/rules/Game.h"

#include <string>

namespace tarveth {

void SendToJail(Game& game, int index) {
    PieceRecord& piece = game.Piece(index);
    piece.X = -piece.X;
    piece.Y = -piece.Y;
    game.JailTable.push_back(piece);
}

ReturnCandidates FindReturnCandidates(const Game& game, int captured) {
    ReturnCandidates candidates;
    if (captured < 1 || captured > game.PieceCount())
        return candidates;
    const PieceRecord& taken = game.Piece(captured);
    if (taken.Side == game.Turn || taken.Kind >= Pawn)
        return candidates;
    for (int slot = 1; slot <= game.JailCount(); ++slot) {
        const PieceRecord& jailed = game.Jailed(slot);
        if (jailed.Side != game.Turn)
            continue;
        if (jailed.Kind >= Pawn && candidates.pawnSlot == 0)
            candidates.pawnSlot = static_cast<std::int16_t>(slot);
        if (jailed.Kind == Officer && taken.Kind == Master && candidates.officerSlot == 0)
            candidates.officerSlot = static_cast<std::int16_t>(slot);
    }
    return candidates;
}

int PieceToReturn(const Game& game, std::int16_t kind) {
    for (int i = 1; i <= game.PieceCount(); ++i) {
        const PieceRecord& piece = game.Piece(i);
        if (piece.Side == game.Turn && piece.Kind == kind && piece.InJail())
            return i;
    }
    return 0;
}

void RemoveJailEntry(Game& game, int slot) {
    game.JailTable.at(static_cast<std::size_t>(slot)) = game.JailTable.back();
    game.JailTable.pop_back();
}

MoveResult CapturePiece(Game& game, int captured) {
    game.Return = {static_cast<std::int16_t>(captured), 0, 0};
    SendToJail(game, captured);
    return {captured, game.Piece(captured).Kind < Pawn,
            std::string(SideName(game.Turn)) + " captured the piece."};
}

void DecideReturn(Game& game, const ReturnCandidates& candidates, std::int16_t kind) {
    game.Return.ReturnKind = kind;
    game.Return.ReturnSlot = kind == Officer ? candidates.officerSlot : candidates.pawnSlot;
}

bool IsReturnDue(const Game& game, const ReturnChoice& choice) {
    if (choice.piece < 1 || choice.piece > game.PieceCount() || choice.slot < 1 ||
        choice.slot > game.JailCount())
        return false;
    const std::int16_t kind = game.Piece(choice.piece).Kind;
    const ReturnCandidates due = FindReturnCandidates(game, game.Return.CapturedPiece);
    const bool kindIsDue = kind == Officer ? due.officerSlot != 0 : kind == Pawn && due.pawnSlot != 0;
    const PieceRecord& jailed = game.Jailed(choice.slot);
    return kindIsDue && choice.piece == PieceToReturn(game, kind) && jailed.Side == game.Turn &&
           jailed.Kind == kind;
}

bool IsSquareFree(const Game& game) {
    return PieceOn(game, game.PendingSquare()) == 0;
}

int ReturnPiece(Game& game, Square square) {
    const int index = PieceToReturn(game, game.Return.ReturnKind);
    const int slot = game.Return.ReturnSlot;
    if (index == 0 || slot < 1 || slot > game.JailCount() || PieceOn(game, square) != 0)
        return 0;
    PieceRecord& piece = game.Piece(index);
    piece.X = square.column;
    piece.Y = square.row;
    RemoveJailEntry(game, slot);
    return index;
}

Victory FindVictory(const Game& game) {
    const auto mastersGone = [&](Side side) { return CountJailed(game, side, Master) >= kMastersPerSide; };
    const auto othersGone = [&](Side side) {
        return CountJailed(game, side, Officer) >= kOfficersPerSide &&
               CountJailed(game, side, Pawn) >= kPawnsPerSide;
    };
    Victory victory;
    if (mastersGone(Blue))
        victory = {Red, "Red has captured all Blue's Masters, and wins!"};
    if (othersGone(Blue))
        victory = {Red, "Red has captured all Blue's Officers and Pawns, and wins!"};
    if (mastersGone(Red))
        victory = {Blue, "Blue has captured all Red's Masters, and wins!"};
    if (othersGone(Red))
        victory = {Blue, "Blue has captured all Red's Officers and Pawns, and wins!"};
    return victory;
}

} // namespace tarveth
