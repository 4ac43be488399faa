// The opponent's squares: from the text queues to the pass.
#include "engine/captures.h"
#include "engine/modMAIN.h"

namespace tarveth {

void modMAIN::TakeRemoteSquare() {
    // A burst is played in the order it was sent: nothing is taken while a turn is still being completed.
    if (net_.RemoteX.IsEmpty())
        return;
    const bool isReturn = net_.RemoteX.Text().starts_with("0|") && net_.RemoteY.Text().starts_with("0|");
    if (game_.GameState == kTurnOver || (game_.GameState == kAllowReturn && !isReturn))
        return;

    const Square square{QueueNumber(PopQueueItem(net_.RemoteX)), QueueNumber(PopQueueItem(net_.RemoteY))};
    if (isReturn) {
        TakeRemoteReturn();
        return;
    }
    if (!square.OnBoard()) {
        ports_.network.ShowNotice(
            "The opponent's program sent a square that is not on the board; it is ignored.");
        return;
    }
    net_.RemoteMove = true;
    game_.ClickX = static_cast<std::int16_t>(square.column);
    game_.ClickY = static_cast<std::int16_t>(square.row);
}

void modMAIN::TakeRemoteReturn() {
    const Square square{QueueNumber(PopQueueItem(net_.RemoteX)), QueueNumber(PopQueueItem(net_.RemoteY))};
    const std::int16_t piece = QueueNumber(PopQueueItem(net_.ReturnPieceIndex));
    const std::int16_t slot = QueueNumber(PopQueueItem(net_.ReturnSlot));
    const std::string name = PopQueueItem(net_.ReturnPieceName);
    if (!square.OnBoard() || PieceOn(game_, square) != 0 || !IsPossibleReturn(piece, slot)) {
        ports_.network.ShowNotice(
            "The opponent's program sent a return that is not possible; it is ignored.");
        return;
    }
    game_.ReturnKind = game_.Piece(piece).Kind;
    game_.ReturnSlot = slot;
    game_.ReturnName = name;
    net_.RemoteMove = true;
    game_.ClickX = static_cast<std::int16_t>(square.column);
    game_.ClickY = static_cast<std::int16_t>(square.row);
    ReturnPiece(); // at once, not on the next pass
    game_.ClearClick();
    net_.RemoteMove = false;
}

bool modMAIN::IsPossibleReturn(int piece, int slot) const {
    const bool stateFits = game_.GameState == kReturnPiece || game_.GameState == kAllowReturn;
    if (!stateFits || piece < 1 || piece > game_.PieceCount() || slot < 1 || slot > game_.JailCount())
        return false;
    const std::int16_t kind = game_.Piece(piece).Kind;
    const ReturnCandidates due = FindReturnCandidates(game_, game_.CapturedPiece);
    const bool kindIsDue = kind == Officer ? due.officerSlot != 0 : kind == Pawn && due.pawnSlot != 0;
    const PieceRecord& jailed = game_.Jailed(slot);
    return kindIsDue && piece == PieceToReturn(game_, kind) && jailed.Side == game_.Turn &&
           jailed.Kind == kind;
}

} // namespace tarveth
