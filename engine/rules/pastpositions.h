// The positions that a game has gone through, each with the number of history lines that led to it. A
// position takes about 260 bytes, so that those of the longest games can all be kept.
#pragma once

#include "engine/rules/modPieces.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarveth {

struct Game;

// Any part of the game may be unknown. All positions stand between two turns: a turn with a return adds two
// lines, and there is no position behind the first of them.
class PastPositions {
public:
    void Clear();
    // Keeps the position of `game` as the one behind the first `lines` lines of the history; the game's own
    // history is not looked at. The game must be sound (see CheckGame). One kept there before is replaced.
    void Set(std::size_t lines, const Game& game);
    // Forgets the positions behind more lines than these.
    void CutTo(std::size_t lines);

    bool Knows(std::size_t lines) const;
    // Gives the whole game as it was behind the first `lines` lines of its history, with nothing picked.
    // `now` is the game as it is, or was, later: it gives what no turn changes and the lines, so it must have
    // as many. Throws std::out_of_range for a position that is not known.
    Game At(std::size_t lines, const Game& now) const;

    // Gives the memory that the positions take, in bytes.
    std::size_t MemoryUse() const {
        return positions_.capacity() * sizeof(Position) + entries_.capacity() * sizeof(PieceRecord);
    }

private:
    // Where a piece is, and where it came from, which the Rule of Reflection asks for.
    struct Place {
        std::int8_t x, y; // negative in the jail
        std::int16_t prevX, prevY;
    };
    struct Position {
        std::int16_t turn = NoSide; // NoSide where the position is not known
        std::uint16_t jailed = 0;   // the number of entries in use
        std::array<Place, kPieces> places{};
        std::array<std::uint32_t, kPieces> jail{}; // in the jail's order: indices in entries_
    };

    std::uint32_t KeepEntry(const PieceRecord& entry);

    std::vector<Position> positions_;  // by number of lines
    std::vector<PieceRecord> entries_; // every jail entry that one of the positions has
};

} // namespace tarveth
