// Positions that are loaded from files, and boards that are exchanged with the opponent's program.
#include "engine/modMAIN.h"

#include <utility>

namespace tarveth {

void modMAIN::SettleForTransfer() {
    game_.ClearClick();
    net_.ClearQueues();
    switch (game_.GameState) {
    case kReturnPiece:
    case kAllowReturn:
    case kTurnOver:
        EndTurn();
        break;
    case kPlacePiece:
    case kGetBoard:
    case kBoardArrived:
        SetGameState(kPickPiece);
        break;
    default:
        break;
    }
}

void modMAIN::AwaitBoard() {
    SettleForTransfer(); // this game goes on if the board turns out to be bad
    SetGameState(kGetBoard);
}

void modMAIN::SetUpPosition(Game position, PositionSource source) {
    const bool fromFile = source == PositionSource::File;
    if (fromFile)
        ports_.record.BeginLoadedRecord();
    else
        ports_.record.BeginReceivedRecord();
    if (fromFile && game_.GameState == kGameOver)
        ports_.window.ShowMessage(""); // clears the winner of the game before
    net_.ClearQueues();                // squares that came before belong to the old board
    game_ = std::move(position);
    ports_.window.ShowHistory();
    if (fromFile)
        ports_.board.RedrawBoard();
    else
        ports_.window.ShowCaption("Tarveth");
    SetTurn(game_.Turn);
    if (!fromFile)
        SetGameState(kBoardArrived);
}

void modMAIN::TakeRemoteTurn(std::int16_t side) {
    if (game_.GameState != kGameOver)
        SetTurn(side);
}

void modMAIN::TakeRemoteStart() {
    if (game_.GameState == kPickPiece)
        SetGameState(kBoardArrived);
}

void modMAIN::EndTransfer() {
    if (game_.GameState == kGetBoard) {
        ports_.window.ShowMessage(game_.VictoryText);
        SetGameState(game_.VictoryText.empty() ? kPickPiece : kGameOver);
    } else if (game_.GameState == kBoardArrived) {
        HandleBoardTransfer();
    }
}

void modMAIN::HandleBoardTransfer() {
    if (game_.GameState == kGetBoard) {
        game_.ClearClick();
        ports_.window.ShowMessage("Getting updated board information.");
    } else if (game_.GameState == kBoardArrived) {
        ports_.board.RedrawBoard();
        SetGameState(kPickPiece);
        ports_.window.ShowMessage("Play may commence.");
    }
}

} // namespace tarveth
