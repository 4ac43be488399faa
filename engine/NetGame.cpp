#include "engine/NetGame.h"

#include "engine/modPieces.h"

namespace tarveth {

bool NetGame::IsLocalSide(std::int16_t side) const {
    return !(side == Blue && !PlayingBlue) && !(side == Red && PlayingBlue);
}

void NetGame::ClearQueues() {
    for (TextQueue* queue : {&RemoteX, &RemoteY, &ReturnPieceIndex, &ReturnSlot, &ReturnPieceName})
        queue->Clear();
    RemoteMove = false;
}

} // namespace tarveth
