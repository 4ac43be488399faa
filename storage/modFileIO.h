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

// Gives the text of a saved-game file for a game between two turns. The title is its second line.
std::string GameText(const Game& game, std::string_view gameTitle);

// Reads a game from the text of a saved-game file; it is in state kPickPiece. Throws platform::FileError for
// a text that is no sound game, with nameForErrors as its path and the number of the line.
Game ParseGame(std::string_view text, const std::string& nameForErrors);

// Write and read a saved-game file. Both throw platform::FileError; ReadGame also for a file longer than
// 8 MiB.
void WriteGame(const Game& game, std::string_view gameTitle, const std::string& path);
Game ReadGame(const std::string& path);

// Writes the history, one line a move. Throws platform::FileError.
void WriteGameLog(const Game& game, const std::string& path);

} // namespace tarveth
