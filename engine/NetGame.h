// What the turn machine knows of a network game: who plays which side, and the squares the opponent has sent.
#pragma once

#include <cstdint>
#include <string>

namespace tarveth {

struct NetGame {
    bool NetConnected = false;
    bool InGame = false;
    bool PlayingBlue = true; // a local game counts the local player as Blue
    bool RemoteMove = false; // the pending square came from the opponent

    // Text queues, each item followed by '|'. A return is a "0" in X and Y in front of its square, and one
    // item in each of the other three.
    std::string RemoteX, RemoteY;
    std::string ReturnPieceIndex, ReturnSlot; // PieceTable index; JailTable index
    std::string ReturnPieceName;              // "Pawn" or "Officer"

    bool GameInProgress() const { return NetConnected && InGame; }
    bool IsLocalSide(std::int16_t side) const;
    void ClearQueues();
};

// Takes the first item off a queue; an empty queue gives the empty text.
std::string PopQueueItem(std::string& queue);

// The number an item stands for: its leading decimal digits, with a minus sign or without. Anything that is
// no number or does not fit 16 bits gives -1, which no square, piece or slot is.
std::int16_t QueueNumber(const std::string& item);

} // namespace tarveth
