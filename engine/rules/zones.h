// Zones of control: where the side to move may take hold of an opposing piece.
#pragma once

#include "engine/rules/modPieces.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace tarveth {

// (column, row), each 0 to 8 with 1 to 8 used: 0 where nobody projects, 1 where a Master does, 2 where only
// Officers do. Make it fresh (all 0) for each computation.
using ZoneMap = std::array<std::array<std::int16_t, kBoardSize + 1>, kBoardSize + 1>;

// Adds one piece's zone to the map. A Pawn, a jailed piece and an index outside the table add nothing.
void ProjectZone(const Game& game, ZoneMap& map, int index);

// Adds the zones of all pieces of the side to move.
void ComputeZones(const Game& game, ZoneMap& map);

// False when all six Pawns or all four Officers of the side to move are in the jail.
bool HasControlPower(const Game& game);

enum class PickRefusal { None, Empty, NoZone, LostPower };

struct PickVerdict {
    PickRefusal refusal = PickRefusal::None;
    int piece = 0; // None: the piece picked
    friend bool operator==(const PickVerdict&, const PickVerdict&) = default;
};

// Judges whether the side to move may select the piece on a square.
PickVerdict JudgePick(const Game& game, Square square);

// The sentence for a refused pick; empty for None, and for an empty square, which is refused without a word.
std::string_view RefusalText(PickRefusal refusal);

// Judges, and selects the piece where it may be: CurPiece is that piece (0 where it is refused), and the
// selection marker's square follows a piece that is selected.
PickVerdict PickPiece(Game& game, Square square);

} // namespace tarveth
