// The search against minimax without any pruning, and what it must find, keep to and end by.
#include "computer/search.h"

#include "tests/computer/Positions.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <thread>

namespace tarveth::test {

namespace {

using computer::GameRecord;
using computer::kWin;
using computer::ListTurns;
using computer::Searcher;
using computer::SearchLimits;
using computer::SearchPosition;
using computer::SearchResult;
using computer::SearchTurn;
using computer::TranspositionTable;
using computer::WriteTurn;

constexpr std::size_t kMebibytes = 1;

// Every turn of every position, to the same depth.
int Minimax(const SearchPosition& position, int depth, int ply) {
    if (position.Rules().IsOver())
        return position.Rules().HasLost(position.Turn()) ? ply - kWin : kWin - ply;
    if (depth == 0)
        return computer::Evaluate(position);
    int best = -computer::kInfinite;
    for (const SearchTurn turn : ListTurns(position.Rules())) {
        SearchPosition next = position;
        next.Play(turn);
        best = std::max(best, -Minimax(next, depth - 1, ply + 1));
    }
    return best == -computer::kInfinite ? 0 : best;
}

int PlainValue(const SearchPosition& position, int depth) {
    TranspositionTable table(kMebibytes);
    Searcher searcher(table);
    searcher.SearchPlainly();
    return searcher.ValueOf(position, depth, {}, {}).value();
}

// Positions of few turns: three deep without pruning they are counted in seconds.
Game RandomBarePosition(Dice& dice) {
    while (true) {
        Game game = RandomOrdinaryPosition(dice);
        const GameRecord record(game);
        if (ListTurns(record.Rules()).size() <= 40)
            return game;
    }
}

SearchResult Think(const GameRecord& record, const SearchLimits& limits, const std::stop_token& stop = {}) {
    TranspositionTable table(kMebibytes);
    Searcher searcher(table);
    return searcher.Think(record.Position(), record.Earlier(), limits, stop);
}

SearchLimits Nodes(std::uint64_t nodes) {
    SearchLimits limits;
    limits.nodes = nodes;
    return limits;
}

// Room for any turn: a Master beside a Master, and one jailed piece of each kind.
constexpr std::string_view kManyReturns =
    "turn B | BM 4D | BM 5E | BO 4E | BO 5D | BP 3C | BP 6F | BP 3F | RM 4C | RM 6E | RM 3E | RO 5C | "
    "jail BP BO BP";

} // namespace

TEST(Search, AgreesWithMinimaxTwoTurnsDeep) {
    Dice dice(71);
    for (int i = 0; i < 2000; ++i) {
        const GameRecord record(RandomBarePosition(dice));
        ASSERT_EQ(PlainValue(record.Position(), 2), Minimax(record.Position(), 2, 0))
            << computer::WritePosition(record.Rules());
    }
}

TEST(Search, AgreesWithMinimaxThreeTurnsDeep) {
    Dice dice(72);
    for (int i = 0; i < 2000; ++i) {
        const GameRecord record(RandomBarePosition(dice));
        if (ListTurns(record.Rules()).size() > 12 && i % 40 != 0)
            continue; // of those with many turns a part will do
        ASSERT_EQ(PlainValue(record.Position(), 3), Minimax(record.Position(), 3, 0))
            << computer::WritePosition(record.Rules());
    }
}

TEST(Search, PlaysOnlyLegalTurnsInRandomGames) {
    Dice dice(73);
    TranspositionTable table(kMebibytes);
    Searcher searcher(table);
    for (int game = 0; game < 40; ++game) {
        GameRecord record(RandomPosition(dice));
        for (int i = 0; i < 20 && !record.Rules().IsOver(); ++i) {
            const SearchResult result = searcher.Think(record.Position(), record.Earlier(), Nodes(200), {});
            const auto turns = ListTurns(record.Rules());
            if (turns.empty()) {
                ASSERT_TRUE(result.turn.IsNone());
                break;
            }
            ASSERT_NE(std::find(turns.begin(), turns.end(), result.turn), turns.end());
            record.Play(dice.Percent(50) ? result.turn : dice.OneOf(turns));
        }
    }
}

TEST(Search, TakesTheLastMaster) {
    const auto record = RecordOf("turn B | BM 1A | BO 4D | RO 4E | RM 2A | jail RM RM BP");
    const SearchResult result = Think(record, Nodes(2000));
    EXPECT_EQ(WriteTurn(result.turn), "1A-2A");
    EXPECT_EQ(result.value, kWin - 1);
}

TEST(Search, TakesTheLastPawnAfterTheLastOfficer) {
    const auto record = RecordOf("turn R | RM 1A | BM 8H | BP 2A | jail BO BO BO BO BP BP BP BP BP");
    EXPECT_EQ(WriteTurn(Think(record, Nodes(2000)).turn), "1A-2A");
}

TEST(Search, SavesItsOwnLastMaster) {
    // The Red Masters attack along the row and the column, and the corner has one way out.
    const auto record = RecordOf("turn B | BM 1A | BP 8H | RM 4A | RP 1C | jail BM BM");
    const SearchResult result = Think(record, Nodes(20'000));
    EXPECT_GT(result.value, -computer::kSurelyWon);
}

TEST(Search, ASideWithoutATurnGivesNone) {
    const auto stuck = RecordOf("turn B | RM 8H | RP 1A | jail BM BM");
    ASSERT_TRUE(ListTurns(stuck.Rules()).empty());
    EXPECT_TRUE(Think(stuck, Nodes(1000)).turn.IsNone());
}

TEST(Search, APositionWithHundredsOfTurnsIsSearchedToTheEndOfADepth) {
    const auto record = RecordOf(kManyReturns);
    ASSERT_GT(ListTurns(record.Rules()).size(), 700U);
    const SearchResult result = Think(record, Nodes(50'000));
    EXPECT_GE(result.depth, 1);
    EXPECT_TRUE(result.turn.IsCapture());
}

TEST(Search, ARepeatedPositionIsWorthNothing) {
    // Blue is far ahead. Red's Master can go back to where it began, and so can the whole game.
    GameRecord record =
        RecordOf("turn B | BM 1A | BM 3A | BM 5A | BO 1H | BO 3H | RM 8E | RP 8H | jail RM RM");
    for (const std::string_view turn : {"1H-1G", "8E-8D", "3A-3B", "8D-8C", "1G-1H", "8C-8D", "3B-3A"})
        record.Play(computer::FindTurn(record.Rules(), turn));
    ASSERT_EQ(record.Earlier().size(), 7U);
    const SearchResult result = Think(record, Nodes(3000));
    EXPECT_EQ(WriteTurn(result.turn), "8D-8E");
    EXPECT_EQ(result.value, 0);
}

TEST(Search, TheSameNodesGiveTheSameTurn) {
    Dice dice(74);
    for (int i = 0; i < 20; ++i) {
        const GameRecord record(RandomOrdinaryPosition(dice));
        const SearchResult first = Think(record, Nodes(5000));
        const SearchResult second = Think(record, Nodes(5000));
        EXPECT_EQ(first.turn, second.turn);
        EXPECT_EQ(first.value, second.value);
        EXPECT_EQ(first.nodes, second.nodes);
    }
}

TEST(Search, AValueThatWasNotSearchedToTheEndIsNone) {
    const auto record = GameRecord(computer::StartOf(kImperialBoard));
    TranspositionTable table(kMebibytes);
    Searcher searcher(table);
    EXPECT_EQ(searcher.ValueOf(record.Position(), 6, Nodes(100), {}), std::nullopt);
    EXPECT_NE(searcher.ValueOf(record.Position(), 2, {}, {}), std::nullopt);
}

TEST(Search, EndsAtItsNodes) {
    const auto record = GameRecord(computer::StartOf(kImperialBoard));
    EXPECT_LE(Think(record, Nodes(3000)).nodes, 3002U);
}

// A thousand nodes take under a millisecond; the clock of a busy machine would tell less.
TEST(Search, EndsWithinAThousandNodesOfAStopRequest) {
    const auto record = GameRecord(computer::StartOf(kImperialBoard));
    std::stop_source stop;
    stop.request_stop();
    const SearchResult result = Think(record, {}, stop.get_token());
    EXPECT_LE(result.nodes, Searcher::kNodesBetweenChecks + 1);
    EXPECT_FALSE(result.turn.IsNone());
}

TEST(Search, EndsWhenAnotherThreadAsksItTo) {
    const auto record = GameRecord(computer::StartOf(kDraumeCrownBoard));
    std::stop_source stop;
    SearchResult result;
    std::thread thinking([&] { result = Think(record, {}, stop.get_token()); });
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    stop.request_stop();
    thinking.join();
    EXPECT_FALSE(result.turn.IsNone());
}

TEST(Search, EndsAtItsTime) {
    const auto record = GameRecord(computer::StartOf(kImperialBoard));
    SearchLimits limits;
    limits.until = computer::Clock::now() - std::chrono::milliseconds(1);
    EXPECT_LE(Think(record, limits).nodes, Searcher::kNodesBetweenChecks + 1);
}

} // namespace tarveth::test
