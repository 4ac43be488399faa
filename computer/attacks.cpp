#include "computer/attacks.h"

namespace tarveth::computer {

namespace {

constexpr SquareSet kFirstColumn = 0x0101010101010101;
constexpr SquareSet kLastColumn = kFirstColumn << (kBoardSize - 1);

// Every square of the set, one step further; those that leave the board are gone.
template <Direction direction>
constexpr SquareSet Step(SquareSet set) {
    constexpr int columns = kSteps[direction].column;
    constexpr int shift = kSteps[direction].row * kBoardSize + columns;
    if constexpr (columns > 0)
        set &= ~kLastColumn;
    if constexpr (columns < 0)
        set &= ~kFirstColumn;
    if constexpr (shift > 0)
        return set << shift;
    else
        return set >> -shift;
}

// What the pieces see in one direction within so many steps, the first occupied squares included.
template <Direction direction, int steps>
constexpr SquareSet See(SquareSet pieces, SquareSet free) {
    SquareSet seen = Step<direction>(pieces);
    SquareSet all = seen;
    for (int i = 1; i < steps; ++i) {
        seen = Step<direction>(seen & free);
        all |= seen;
    }
    return all;
}

template <int steps>
constexpr SquareSet SeeStraight(SquareSet pieces, SquareSet free) {
    return See<East, steps>(pieces, free) | See<South, steps>(pieces, free) | See<West, steps>(pieces, free) |
           See<North, steps>(pieces, free);
}

template <int steps>
constexpr SquareSet SeeDiagonally(SquareSet pieces, SquareSet free) {
    return See<SouthEast, steps>(pieces, free) | See<SouthWest, steps>(pieces, free) |
           See<NorthWest, steps>(pieces, free) | See<NorthEast, steps>(pieces, free);
}

} // namespace

SquareSet AttackedBy(const CompactGame& position, Side side) {
    const SquareSet free = ~position.Occupied();
    const SquareSet pawns = position.Standing(side, Pawn);
    SquareSet attacked = SeeStraight<3>(position.Standing(side, Master), free) |
                         SeeStraight<2>(position.Standing(side, Officer), free) |
                         SeeStraight<1>(pawns, free) | SeeDiagonally<1>(pawns, free);
    const Controlled controlled = position.ControlledPieces(side);
    if (controlled.officers != 0)
        attacked |= SeeStraight<2>(controlled.officers, free);
    if (controlled.pawns != 0)
        attacked |= SeeStraight<3>(controlled.pawns, free) | SeeDiagonally<3>(controlled.pawns, free);
    return attacked;
}

} // namespace tarveth::computer
