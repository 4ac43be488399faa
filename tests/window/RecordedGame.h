// A game that is recorded in a file of tests/data.
#pragma once

#include <string>
#include <vector>

namespace tarveth::harness {

// The lines of the game's history, "O" or "P" as the answer to the question which piece returns, and the
// victory.
struct RecordedGame {
    std::vector<std::string> steps; // history lines and answers
    std::string victory;

    // Reads the file. Its last line begins with "= " and gives the victory's sentence.
    explicit RecordedGame(const std::string& file);

    [[nodiscard]] std::vector<std::string> History() const;
};

// Gives the text of lblMoveStatus before a step; nothing where a dialog asks instead.
std::string PromptBefore(const std::string& step);

// Gives the lines of the game's log.
std::string AsLog(const std::vector<std::string>& lines);

} // namespace tarveth::harness
