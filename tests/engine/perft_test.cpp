// The turn counter against published counts, against the click-driven counter, and against saved positions.
#include "engine/rules/perft.h"

#include "storage/modFileIO.h"
#include "tests/engine/Clicking.h"
#include "tests/engine/RandomPosition.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <ostream>
#include <sstream>

namespace tarveth {

void PrintTo(const TurnCounts& n, std::ostream* out) {
    *out << n.turns << ' ' << n.own << ' ' << n.controlled << ' ' << n.captures << ' ' << n.ownCaptures << ' '
         << n.returns << ' ' << n.wins;
}

namespace test {

namespace {

Game NewGameOf(std::int16_t boardVariant) {
    TestGame table;
    table.settings.BoardVariant = boardVariant;
    table.main.NewGame();
    return table.game;
}

void ExpectCountsAsClicked(const Game& game, int depth) {
    Clicking clicking;
    for (int d = 1; d <= depth; ++d)
        EXPECT_EQ(CountTurns(game, d), clicking.CountTurns(game, d)) << "depth " << d;
}

// A line of a .perft file: "GAME.TSG depth turns own controlled captures own_captures returns wins".
struct Expectation {
    std::string file;
    int depth = 0;
    TurnCounts counts;
};

std::vector<Expectation> ReadExpectations(const std::filesystem::path& path) {
    std::vector<Expectation> expectations;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#')
            continue;
        std::istringstream words(line);
        Expectation e;
        TurnCounts& n = e.counts;
        words >> e.file >> e.depth >> n.turns >> n.own >> n.controlled >> n.captures >> n.ownCaptures >>
            n.returns >> n.wins;
        if (!words)
            throw std::invalid_argument(path.string() + ": " + line);
        expectations.push_back(e);
    }
    return expectations;
}

} // namespace

TEST(Perft, ImperialBoard) {
    const Game game = NewGameOf(kImperialBoard);
    EXPECT_EQ(CountTurns(game, 1), (TurnCounts{44, 44, 0, 11, 7, 0, 0}));
    EXPECT_EQ(CountTurns(game, 2), (TurnCounts{2148, 2001, 147, 691, 308, 200, 0}));
    EXPECT_EQ(CountTurns(game, 3), (TurnCounts{109222, 101714, 7508, 31552, 14200, 8292, 0}));
    EXPECT_EQ(CountTurns(game, 4).turns, 6013876U);
}

TEST(Perft, DraumeCrownBoard) {
    const Game game = NewGameOf(kDraumeCrownBoard);
    EXPECT_EQ(CountTurns(game, 1), (TurnCounts{39, 39, 0, 7, 7, 0, 0}));
    EXPECT_EQ(CountTurns(game, 2), (TurnCounts{1521, 1521, 0, 273, 273, 0, 0}));
    EXPECT_EQ(CountTurns(game, 3), (TurnCounts{62747, 62666, 81, 10465, 10374, 0, 0}));
    EXPECT_EQ(CountTurns(game, 4).turns, 2598846U);
}

TEST(Perft, AgreesWithClickingOnBothLayouts) {
    ExpectCountsAsClicked(NewGameOf(kImperialBoard), 2);
    ExpectCountsAsClicked(NewGameOf(kDraumeCrownBoard), 2);
}

TEST(Perft, AgreesWithClickingInRandomPositions) {
    Dice dice(21);
    for (int i = 0; i < 500; ++i)
        ExpectCountsAsClicked(RandomPosition(dice), 1);
}

TEST(Perft, AgreesWithClickingTwoTurnsDeepInRandomPositions) {
    Dice dice(22);
    for (int i = 0; i < 6; ++i)
        ExpectCountsAsClicked(RandomPosition(dice), 2);
}

TEST(Perft, AWonGameCountsNothingAtAnyDepth) {
    const TestGame table("turn B | BM 1A | jail RM RM RM");
    EXPECT_EQ(CountTurns(table.game, 1), TurnCounts{});
    EXPECT_EQ(CountTurns(table.game, 3), TurnCounts{});
}

TEST(Perft, SavedPositions) {
    const std::filesystem::path folder = std::filesystem::path(TARVETH_SOURCE_DIR) / "tests" / "data";
    const auto expectations = ReadExpectations(folder / "midgame.perft");
    ASSERT_GE(expectations.size(), 20U);
    for (const Expectation& e : expectations)
        EXPECT_EQ(CountTurns(ReadGame((folder / e.file).string()), e.depth), e.counts)
            << e.file << " depth " << e.depth;
}

} // namespace test

} // namespace tarveth
