// Saved games and the game log: a game as a text file, and back.
//
// The reader forgives: any first and second line (header and title), LF alone for CR LF, a last line without
// an end, a missing history, anything behind the history, and whatever follows the number a line begins with
// (a line without a number is 0). It refuses, naming the line, whatever is no game.
#pragma once

#include "engine/rules/Game.h"

#include <string>
#include <string_view>

namespace tarveth {

// The file's text for a game at rest. The title is the second line.
std::string GameText(const Game& game, std::string_view gameTitle);

// The game in a file's text, waiting in state 1 for the side to move to pick a piece. Throws
// platform::FileError for a text that is no game, with nameForErrors as its path and the line.
Game ParseGame(std::string_view text, const std::string& nameForErrors);

// Write and read a saved game; a file longer than 8 MiB is none. Throw platform::FileError.
void WriteGame(const Game& game, std::string_view gameTitle, const std::string& path);
Game ReadGame(const std::string& path);

// Writes the history, one line a move. Throws platform::FileError.
void WriteGameLog(const Game& game, const std::string& path);

} // namespace tarveth
