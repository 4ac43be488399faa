// The handlers of a pending square: each asks the rules, tells the ports the result and sets the next state.
#include "engine/modMAIN.h"
#include "engine/rules/moves.h"
#include "engine/rules/zones.h"

#include <string>

namespace tarveth {

void modMAIN::DepositSquare(Square square) {
    if (game_.GameState == kGameOver || game_.Animating || Busy())
        return; // a pass is still waiting for an animation or for the choice of a returning piece
    if (!net_.IsPlayedHere(game_.Turn)) {
        ShowStatus("Not your turn.");
        return;
    }
    if (net_.RemoteMove)
        return; // the opponent's square is handled first
    SetPendingSquare(square.OnBoard() ? square : Square{});
    if (game_.GameState == kReturnPiece && !IsSquareFree(game_)) {
        ShowStatus(
            "That position is not free. Please click on the position where you'd like to return your " +
            std::string(game_.Return.ReturnName()) + " to play.");
        game_.ClearClick();
    }
}

bool modMAIN::WouldPick(Square square) const {
    return game_.GameState == kPickPiece && IsMyTurn() && square.OnBoard() &&
           JudgePick(game_, square).refusal == PickRefusal::None;
}

void modMAIN::PutDownPiece() {
    if (game_.GameState == kPlacePiece && IsMyTurn())
        DepositSquare({game_.SelX, game_.SelY});
}

void modMAIN::SetPendingSquare(Square square) {
    game_.ClickX = static_cast<std::int16_t>(square.column);
    game_.ClickY = static_cast<std::int16_t>(square.row);
}

void modMAIN::EchoClick() {
    if (net_.GameInProgress() && !net_.RemoteMove)
        ports_.network.SendGameMessage("M(" + std::to_string(game_.ClickX) + ", " +
                                       std::to_string(game_.ClickY) + ")");
}

void modMAIN::PickPiece() {
    if (game_.Animating)
        return;
    const PickVerdict verdict = tarveth::PickPiece(game_, game_.PendingSquare());
    if (verdict.refusal == PickRefusal::None)
        SetGameState(kPlacePiece);
    else if (const std::string_view text = RefusalText(verdict.refusal); !text.empty())
        ShowStatus(text);
}

void modMAIN::PlacePiece() {
    if (game_.Animating)
        return;
    ports_.window.ShowMessage("");
    const Square to = game_.PendingSquare();
    const int index = game_.CurPiece;
    if (game_.Piece(index).StandsOn(to)) {
        SetGameState(kPickPiece);
        return;
    }
    const Verdict verdict = JudgeMove(game_, index, to);
    if (verdict.refusal == Refusal::None)
        MovePiece(index, to, verdict.captured);
    else
        ShowStatus(RefusalText(game_, verdict));
}

// The taken piece stays on its square until the mover has arrived.
void modMAIN::MovePiece(int index, Square to, int captured) {
    BeginMove(game_, index);
    if (options_.MovesAreAnimated())
        ports_.board.AnimateMove(index, to);
    const MoveResult result = FinishMove(game_, index, to, captured);
    if (result.captured != 0)
        ports_.record.RecordCapture(index, result.captured);
    else
        ports_.record.RecordMove(index);
    ports_.window.ShowHistory();
    if (!result.message.empty())
        ShowStatus(result.message);
    if (result.mayEarnReturn)
        ports_.board.RedrawBoard();
    SetGameState(result.mayEarnReturn ? kAllowReturn : kTurnOver);
}

bool modMAIN::IsMyTurn() const {
    return net_.IsPlayedHere(game_.Turn);
}

// Whether the local player has to choose a return that was the opponent's to choose: the link has ended, or
// the players have swapped sides.
bool modMAIN::ReturnUndecided() const {
    return game_.GameState == kReturnPiece && game_.Return.ReturnKind == 0 && IsMyTurn();
}

void modMAIN::CheckReturnDue() {
    const ReturnCandidates candidates = FindReturnCandidates(game_, game_.Return.CapturedPiece);
    if (!candidates.Any()) {
        SetGameState(kTurnOver);
        return;
    }
    game_.Return = {game_.Return.CapturedPiece, 0, 0};
    if (IsMyTurn()) { // otherwise who plays the side says which piece comes back
        const PieceKind only = candidates.officerSlot != 0 ? Officer : Pawn;
        DecideReturn(game_, candidates, candidates.Both() ? ports_.person.ChooseReturn(game_.Turn) : only);
    }
    SetGameState(kReturnPiece);
}

void modMAIN::ReturnPiece() {
    const Square square = game_.PendingSquare();
    const int index = tarveth::ReturnPiece(game_, square);
    if (index == 0)
        return;
    if (net_.GameInProgress() && !net_.RemoteMove)
        ports_.network.SendGameMessage("R(" + std::to_string(square.column) + ',' +
                                       std::to_string(square.row) + ',' + std::to_string(index) + ',' +
                                       std::to_string(game_.Return.ReturnSlot) + ')');
    ports_.record.RecordReturn(square);
    ports_.window.ShowHistory();
    ShowStatus(std::string(SideName(game_.Turn)) + ' ' + std::string(game_.Return.ReturnName()) +
               " returned to play.");
    SetGameState(kTurnOver);
}

bool modMAIN::CheckVictory() {
    const Victory victory = FindVictory(game_);
    if (victory.winner == NoSide)
        return false;
    game_.VictoryText = victory.sentence;
    ports_.window.ShowMessage(victory.sentence);
    const bool blueWon = victory.winner == Blue;
    if (net_.GameInProgress())
        ports_.network.AnnounceVictory(blueWon);
    ports_.person.GameEndSound(blueWon == net_.PlayingBlue);
    return true;
}

// Takes the next square that the opponent has sent. Several that arrive together are played in their order,
// so none is taken while a turn is still being completed.
void modMAIN::TakeRemoteSquare() {
    if (!net_.SquareWaits() || game_.GameState == kTurnOver ||
        (game_.GameState == kAllowReturn && !net_.NextIsReturn()))
        return;
    const RemoteSquare remote = net_.TakeSquare();
    if (remote.returned) {
        TakeRemoteReturn(remote.square, *remote.returned);
        return;
    }
    if (!remote.square.OnBoard()) {
        ports_.network.ShowNotice(
            "The opponent's program sent a square that is not on the board; it is ignored.");
        return;
    }
    net_.RemoteMove = true;
    SetPendingSquare(remote.square);
}

void modMAIN::TakeRemoteReturn(Square square, const ReturnChoice& choice) {
    const bool stateFits = game_.GameState == kReturnPiece || game_.GameState == kAllowReturn;
    if (!stateFits || !square.OnBoard() || PieceOn(game_, square) != 0 || !IsReturnDue(game_, choice)) {
        ports_.network.ShowNotice(
            "The opponent's program sent a return that is not possible; it is ignored.");
        return;
    }
    game_.Return.ReturnKind = game_.Piece(choice.piece).Kind;
    game_.Return.ReturnSlot = static_cast<std::int16_t>(choice.slot);
    net_.RemoteMove = true;
    SetPendingSquare(square);
    ReturnPiece(); // at once, not on the next pass
    game_.ClearClick();
    net_.RemoteMove = false;
}

} // namespace tarveth
