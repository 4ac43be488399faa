// What the turn machine knows of a network game: which side is played here, and the squares that the opponent
// has sent.
#pragma once

#include "engine/TextQueue.h"
#include "engine/rules/captures.h"

#include <cstdint>
#include <optional>

namespace tarveth {

// One item from the opponent's program: a square that they clicked, or the square that a piece returns to.
struct RemoteSquare {
    Square square; // as it was sent; it may be off the board
    std::optional<ReturnChoice> returned;
};

struct NetGame {
    bool NetConnected = false;
    bool InGame = false;
    bool PlayingBlue = true; // in a local game too
    bool RemoteMove = false; // the pending square came from the opponent

    // The squares that wait. A return is marked by a "0" in RemoteX and RemoteY, in front of its square, and
    // has one item in each of the other three queues.
    TextQueue RemoteX, RemoteY;
    TextQueue ReturnPieceIndex, ReturnSlot; // indices in PieceTable and in JailTable
    TextQueue ReturnPieceName;              // "Pawn" or "Officer"

    bool SquareWaits() const { return !RemoteX.IsEmpty(); }
    // Whether the next item is a return; false when none waits.
    bool NextIsReturn() const;
    // Takes the next item off the queues, which must not be empty.
    RemoteSquare TakeSquare();

    bool GameInProgress() const { return NetConnected && InGame; }
    bool IsLocalSide(std::int16_t side) const;
    // Drops all items that wait. The caller clears the pending square.
    void ClearQueues();
};

} // namespace tarveth
