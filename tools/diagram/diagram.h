// A diagram of the manual: a position and marks on it, read from a .position file.
//
//   # a comment
//   title A Master's zone               what the picture shows, in words
//   position turn B | BM 4D | RP 4E     as engine/rules/positiontext.h reads it
//   layout imperial                     or: draume. Instead of a position, the pieces of a new game
//   zone 4D 5F                          squares that these pieces rule
//   piece 4D                            the piece whose moves are marked
//   can 4E 4F                           where it may go
//   cannot 4G                           where it may not
//   arrow 4D 4G                         a move
//   show 3C 5E                          only the squares between these two corners, without letters and
//   numbers
#pragma once

#include "engine/rules/Game.h"

#include <istream>
#include <string>
#include <utility>
#include <vector>

namespace tarveth::diagram {

struct Diagram {
    std::string title;
    Game game;
    std::vector<Square> zones;
    Square piece;
    std::vector<Square> can;
    std::vector<Square> cannot;
    std::vector<std::pair<Square, Square>> arrows;
    Square first{1, 1}; // the corners of the part that is shown
    Square last{kBoardSize, kBoardSize};

    bool WholeBoard() const { return first == Square{1, 1} && last == Square{kBoardSize, kBoardSize}; }
    // Gives the strongest kind of piece whose zone a square is in, 0 for none.
    int ZoneAt(Square square) const;
};

// Throws std::invalid_argument or std::out_of_range for a line that is not understood.
Diagram ReadDiagram(std::istream& file);

// Gives the lines of the diagram in fixed-width letters; the last lines explain its signs.
std::vector<std::string> TextOf(const Diagram& diagram);

} // namespace tarveth::diagram
