// Somebody who plays in a match: a level of this build, a simple opponent, or another program.
#pragma once

#include "computer/GameRecord.h"

#include <cstdint>
#include <memory>
#include <string>

namespace tarveth::match {

// What a player did for its turns, for the summary.
struct Effort {
    std::uint64_t turns = 0;
    double seconds = 0;
    double longest = 0;       // seconds for one turn
    std::uint64_t depths = 0; // sum of the depths told
    std::uint64_t nodes = 0;
};

class MatchPlayer {
public:
    MatchPlayer() = default;
    MatchPlayer(const MatchPlayer&) = delete;
    MatchPlayer& operator=(const MatchPlayer&) = delete;
    virtual ~MatchPlayer() = default;

    // Before every game; the same seed plays the same game where nothing but the seed decides.
    virtual void BeginGame(const computer::GameRecord& start, std::uint64_t seed) = 0;
    // A turn of either side has been played.
    virtual void Played(computer::SearchTurn turn) = 0;
    // The turn to play; none where it has none. Throws std::runtime_error when the player has failed.
    virtual computer::SearchTurn Choose(const computer::GameRecord& game) = 0;

    Effort effort;
};

// What a player may use for each turn unless its own description says otherwise.
struct Pace {
    int milliseconds = 100;
    std::uint64_t nodes = 0; // instead, when not 0
};

// By its description: "level:6", "level:6,nodes=20000", "level:6,ms=500", "random", "material:1",
// "material:3", "exec:COMMAND". Throws std::invalid_argument for any other.
std::unique_ptr<MatchPlayer> MakePlayer(const std::string& description, const Pace& pace);

// The simple opponents.
std::unique_ptr<MatchPlayer> MakeRandomPlayer();
// Alpha-beta to so many turns on nothing but material; equal turns are chosen among by chance.
std::unique_ptr<MatchPlayer> MakeMaterialPlayer(int turns);
// Another program that obeys the line protocol, run by the shell.
std::unique_ptr<MatchPlayer> MakeProgram(const std::string& command, const Pace& pace);

} // namespace tarveth::match
