// What a turn has left on the board.
#pragma once

#include "engine/rules/modPieces.h"

namespace tarveth {

// A square is (0, 0) where there is none.
struct MoveTrace {
    Square from, to;
    bool captured = false; // a piece was taken on `to`
    Square returned;       // where a piece came back for it

    friend bool operator==(const MoveTrace&, const MoveTrace&) = default;
};

} // namespace tarveth
