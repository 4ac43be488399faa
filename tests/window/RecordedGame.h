// A recorded game of tests/data.
#pragma once

#include <string>
#include <vector>

namespace tarveth::harness {

// Its history, with "O" or "P" for the answer to which piece comes back, and the victory at the end.
struct RecordedGame {
    std::vector<std::string> steps; // history lines and answers
    std::string victory;

    // From a file of lines; the last begins with "= " and tells the victory.
    explicit RecordedGame(const std::string& file);

    [[nodiscard]] std::vector<std::string> History() const;
};

// What lblMoveStatus asks for before a step; nothing while a dialog asks instead.
std::string PromptBefore(const std::string& step);

// The lines as a game's log holds them.
std::string AsLog(const std::vector<std::string>& lines);

} // namespace tarveth::harness
