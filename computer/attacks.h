// Which squares a side could take on, worked out for all its pieces at once. Pieces with unusual limits are
// taken for ordinary ones: the search orders and judges by this, and plays only what the rules list.
#pragma once

#include "engine/rules/CompactGame.h"

namespace tarveth::computer {

// Every square where `side` could take an opposing piece next, by its own pieces or by those it controls.
SquareSet AttackedBy(const CompactGame& position, Side side);

// The side has one Master left, and the other side could take it if it had the turn.
inline bool LastMasterInDanger(const CompactGame& position, Side side) {
    return position.Jailed(side, Master) == kMastersPerSide - 1 &&
           (AttackedBy(position, Opponent(side)) & position.Standing(side, Master)) != 0;
}

} // namespace tarveth::computer
