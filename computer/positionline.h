// Positions and turns as the line protocol writes them.
#pragma once

#include "computer/SearchTurn.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarveth {
struct Game;
}

namespace tarveth::computer {

// The position of 64 letters row by row, the side to move, the piece moved last with the square it may not go
// back to, and the jail. Nothing when the text is no position that the pieces of a game can stand in.
std::optional<Game> ReadPosition(std::string_view text);
std::string WritePosition(const CompactGame& position);

// "5C" for the square of that number.
std::string WriteSquare(int number);

// "5C-4D", "4D-4E+P2G": from, to, and what comes back where.
std::string WriteTurn(SearchTurn turn);

// All complete turns; none when the game is over.
std::vector<SearchTurn> ListTurns(const CompactGame& position);

// The legal turn that the text names, none when there is no such.
SearchTurn FindTurn(const CompactGame& position, std::string_view text);

} // namespace tarveth::computer
