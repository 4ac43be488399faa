// The line protocol by which programs play each other: one command a line, one answer line each.
#pragma once

#include "computer/GameRecord.h"
#include "computer/Player.h"

#include <optional>
#include <string>
#include <string_view>

namespace tarveth::computer {

class LineProtocol {
public:
    explicit LineProtocol(int level);

    // The answer to a command, without a line end. Nothing for "quit". What is no command of the protocol is
    // answered "error ..." and changes nothing.
    std::optional<std::string> Answer(std::string_view line);

private:
    std::string NewGame(std::string_view layout);
    std::string SetPosition(std::string_view text);
    std::string PlayTurn(std::string_view text);
    std::string Go(std::string_view milliseconds);
    std::string Turns() const;
    std::string Result() const;
    std::string SetLevel(std::string_view number);
    std::string SetSeed(std::string_view number);
    std::string SetNodes(std::string_view number);

    Player player_;
    GameRecord record_;
    std::uint64_t seed_ = 1;
    std::uint64_t nodes_ = 0;
};

} // namespace tarveth::computer
