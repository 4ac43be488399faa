// What the turn machine knows of a network game: who plays which side, and the squares the opponent has sent.
#pragma once

#include "engine/TextQueue.h"
#include "engine/rules/captures.h"

#include <cstdint>
#include <optional>

namespace tarveth {

// What the opponent's program has sent: a square, or a piece that comes back to it.
struct RemoteSquare {
    Square square; // as it was sent, perhaps not on the board
    std::optional<ReturnChoice> returned;
};

struct NetGame {
    bool NetConnected = false;
    bool InGame = false;
    bool PlayingBlue = true; // a local game counts the local player as Blue
    bool RemoteMove = false; // the pending square came from the opponent

    // A return is a "0" in X and Y in front of its square, and one item in each of the other three.
    TextQueue RemoteX, RemoteY;
    TextQueue ReturnPieceIndex, ReturnSlot; // PieceTable index; JailTable index
    TextQueue ReturnPieceName;              // "Pawn" or "Officer"

    bool SquareWaits() const { return !RemoteX.IsEmpty(); }
    // Whether the next one is a return; false when none waits.
    bool NextIsReturn() const;
    // Takes the next one off the queues; one must be waiting.
    RemoteSquare TakeSquare();

    bool GameInProgress() const { return NetConnected && InGame; }
    bool IsLocalSide(std::int16_t side) const;
    // Forgets what the opponent has sent; whoever calls clears the pending square.
    void ClearQueues();
};

} // namespace tarveth
