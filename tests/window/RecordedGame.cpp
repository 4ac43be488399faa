#include "tests/window/RecordedGame.h"

#include <fstream>

namespace tarveth::harness {

RecordedGame::RecordedGame(const std::string& file) {
    std::ifstream lines(file);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("= ")) {
            victory = line.substr(2);
        } else {
            steps.push_back(line);
        }
    }
}

std::vector<std::string> RecordedGame::History() const {
    std::vector<std::string> lines;
    for (const std::string& step : steps) {
        if (step.size() > 1) {
            lines.push_back(step);
        }
    }
    return lines;
}

std::string PromptBefore(const std::string& step) {
    return step.size() == 1 ? "" : step.starts_with("  ") ? "Return piece" : "Pick piece";
}

std::string AsLog(const std::vector<std::string>& lines) {
    std::string log;
    for (const std::string& line : lines) {
        log += line + "\r\n";
    }
    return log;
}

} // namespace tarveth::harness
