// What the turn machine knows of a side that is not played by clicks at this screen, but by an opponent's
// program or by the computer: which side that is, and the squares that have come from there.
#pragma once

#include "engine/TextQueue.h"
#include "engine/rules/captures.h"

#include <cstdint>
#include <optional>
#include <string_view>

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

    // Which sides the computer plays, in a game at this screen.
    bool ComputerPlaysBlue = false;
    bool ComputerPlaysRed = false;

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
    // Put an item at the end of the queues.
    void AddSquare(Square square);
    void AddReturn(Square square, const ReturnChoice& choice, std::string_view name);

    bool GameInProgress() const { return NetConnected && InGame; }
    bool IsLocalSide(std::int16_t side) const;
    // Whether clicks at this screen play the side.
    bool IsPlayedHere(std::int16_t side) const;
    // Drops all items that wait. The caller clears the pending square.
    void ClearQueues();
};

} // namespace tarveth
