#include "engine/NetGame.h"

#include "engine/rules/modPieces.h"

#include <string>

namespace tarveth {

bool NetGame::IsLocalSide(std::int16_t side) const {
    return !(side == Blue && !PlayingBlue) && !(side == Red && PlayingBlue);
}

bool NetGame::IsPlayedHere(std::int16_t side) const {
    if (GameInProgress())
        return IsLocalSide(side);
    return !(side == Blue && ComputerPlaysBlue) && !(side == Red && ComputerPlaysRed);
}

void NetGame::AddSquare(Square square) {
    RemoteX.Append(std::to_string(square.column));
    RemoteY.Append(std::to_string(square.row));
}

void NetGame::AddReturn(Square square, const ReturnChoice& choice, std::string_view name) {
    AddSquare({0, 0});
    AddSquare(square);
    ReturnPieceIndex.Append(std::to_string(choice.piece));
    ReturnSlot.Append(std::to_string(choice.slot));
    ReturnPieceName.Append(name);
}

bool NetGame::NextIsReturn() const {
    return RemoteX.Text().starts_with("0|") && RemoteY.Text().starts_with("0|");
}

RemoteSquare NetGame::TakeSquare() {
    const auto takeSquare = [this] {
        const std::int16_t column = QueueNumber(PopQueueItem(RemoteX));
        return Square{column, QueueNumber(PopQueueItem(RemoteY))};
    };
    const bool isReturn = NextIsReturn();
    const Square first = takeSquare();
    if (!isReturn)
        return {first, std::nullopt};
    const Square square = takeSquare();
    const ReturnChoice choice{QueueNumber(PopQueueItem(ReturnPieceIndex)),
                              QueueNumber(PopQueueItem(ReturnSlot))};
    PopQueueItem(ReturnPieceName); // not needed: PieceTable holds the piece's kind
    return {square, choice};
}

void NetGame::ClearQueues() {
    for (TextQueue* queue : {&RemoteX, &RemoteY, &ReturnPieceIndex, &ReturnSlot, &ReturnPieceName})
        queue->Clear();
    RemoteMove = false;
}

} // namespace tarveth
