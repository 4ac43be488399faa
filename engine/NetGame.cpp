#include "engine/NetGame.h"

#include "engine/modPieces.h"

#include <charconv>

namespace tarveth {

bool NetGame::IsLocalSide(std::int16_t side) const {
    return !(side == Blue && !PlayingBlue) && !(side == Red && PlayingBlue);
}

void NetGame::ClearQueues() {
    for (std::string* queue : {&RemoteX, &RemoteY, &ReturnPieceIndex, &ReturnSlot, &ReturnPieceName})
        queue->clear();
}

std::string PopQueueItem(std::string& queue) {
    const std::size_t bar = queue.find('|');
    std::string item = queue.substr(0, bar);
    queue.erase(0, bar == std::string::npos ? bar : bar + 1);
    return item;
}

std::int16_t QueueNumber(const std::string& item) {
    const std::size_t start = item.find_first_not_of(" \t");
    if (start == std::string::npos)
        return -1;
    std::int16_t number = 0;
    const auto result = std::from_chars(item.data() + start, item.data() + item.size(), number);
    return result.ec == std::errc{} ? number : std::int16_t{-1};
}

} // namespace tarveth
