// A whole board on its way to the opponent's program, or from there.
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
    SettleForTransfer(); // the game is played on if the board turns out bad
    SetGameState(kGetBoard);
}

void modMAIN::TakeBoard(Game board) {
    ports_.record.BeginReceivedRecord();
    net_.ClearQueues(); // what came while the board arrived belongs to neither
    game_ = std::move(board);
    ports_.window.ShowHistory();
    ports_.window.ShowCaption("Tarveth");
    SetTurn(game_.Turn);
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
