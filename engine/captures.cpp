#include "engine/captures.h"

#include "engine/Game.h"
#include "engine/modMAIN.h"
#include "storage/notation.h"

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

std::string_view VictorySentence(const Game& game) {
    constexpr int kMasters = 3;
    constexpr int kOfficers = 4;
    constexpr int kPawns = 6;
    const auto mastersGone = [&](Side side) { return CountJailed(game, side, Master) >= kMasters; };
    const auto othersGone = [&](Side side) {
        return CountJailed(game, side, Officer) >= kOfficers && CountJailed(game, side, Pawn) >= kPawns;
    };
    std::string_view sentence;
    if (mastersGone(Blue))
        sentence = "Red has captured all Blue's Masters, and wins!";
    if (othersGone(Blue))
        sentence = "Red has captured all Blue's Officers and Pawns, and wins!";
    if (mastersGone(Red))
        sentence = "Blue has captured all Red's Masters, and wins!";
    if (othersGone(Red))
        sentence = "Blue has captured all Red's Officers and Pawns, and wins!";
    return sentence;
}

void modMAIN::CapturePiece(int mover, int captured, Square to) {
    game_.CapturedPiece = static_cast<std::int16_t>(captured);
    RelocatePiece(mover, to);
    HistoryAddCapture(game_, mover, captured);
    ports_.window.ShowHistory();
    SendToJail(game_, captured);
    ShowStatus(std::string(SideName(game_.Turn)) + " captured the piece.");
    if (game_.Piece(captured).Kind >= Pawn) {
        SetGameState(kTurnOver);
        return;
    }
    ports_.board.RedrawBoard();
    SetGameState(kAllowReturn);
}

void modMAIN::CheckReturnDue() {
    const ReturnCandidates candidates = FindReturnCandidates(game_, game_.CapturedPiece);
    if (!candidates.Any()) {
        SetGameState(kTurnOver);
        return;
    }
    game_.ReturnKind = game_.ReturnSlot = 0; // unknown until the opponent tells, where it is his to place
    if (MayPlaceReturn()) {
        const bool officer = candidates.Both() ? ports_.person.ChooseReturn(game_.Turn) == Officer
                                               : candidates.officerSlot != 0;
        game_.ReturnKind = officer ? Officer : Pawn;
        game_.ReturnSlot = officer ? candidates.officerSlot : candidates.pawnSlot;
        game_.ReturnName = KindName(game_.ReturnKind);
    }
    SetGameState(kReturnPiece);
}

void modMAIN::ReturnPiece() {
    const int index = PieceToReturn(game_, game_.ReturnKind);
    if (index == 0 || game_.ReturnSlot < 1 || game_.ReturnSlot > game_.JailCount() || !IsSquareFree())
        return;
    PieceRecord& piece = game_.Piece(index);
    piece.X = game_.ClickX;
    piece.Y = game_.ClickY;
    if (net_.GameInProgress() && !net_.RemoteMove)
        ports_.network.SendGameMessage("R(" + std::to_string(game_.ClickX) + ',' +
                                       std::to_string(game_.ClickY) + ',' + std::to_string(index) + ',' +
                                       std::to_string(game_.ReturnSlot) + ')');
    HistoryAddReturn(game_, game_.PendingSquare());
    ports_.window.ShowHistory();
    RemoveJailEntry(game_, game_.ReturnSlot);
    ShowStatus(std::string(SideName(game_.Turn)) + ' ' + game_.ReturnName + " returned to play.");
    SetGameState(kTurnOver);
}

bool modMAIN::CheckVictory() {
    const std::string_view sentence = VictorySentence(game_);
    if (sentence.empty())
        return false;
    game_.VictoryText = sentence;
    ports_.window.ShowMessage(sentence);
    const bool blueWon = sentence.starts_with(SideName(Blue));
    if (net_.GameInProgress())
        ports_.network.AnnounceVictory(blueWon);
    ports_.person.GameEndSound(blueWon == net_.PlayingBlue);
    return true;
}

} // namespace tarveth
