// What every level holds to.
#include "computer/Player.h"

#include "tests/computer/Positions.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tarveth::test {

namespace {

using computer::GameRecord;
using computer::ListTurns;
using computer::Player;
using computer::SearchTurn;
using computer::WriteTurn;

constexpr std::uint64_t kNodes = 3000;

SearchTurn ChoiceOf(Player& player, const GameRecord& record) {
    return player.Choose(record.Position(), record.Earlier(), {std::nullopt, kNodes}).turn;
}

class EveryLevel : public testing::TestWithParam<int> {};

} // namespace

TEST_P(EveryLevel, PlaysLegalTurnsAgainstChanceToTheEnd) {
    Dice dice(81);
    Player player(GetParam(), 1);
    for (int game = 0; game < 4; ++game) {
        player.BeginGame(static_cast<std::uint64_t>(game));
        GameRecord record(computer::StartOf(game % 2 == 0 ? kImperialBoard : kDraumeCrownBoard));
        for (int i = 0; i < 120 && !record.Rules().IsOver(); ++i) {
            const auto turns = ListTurns(record.Rules());
            if (turns.empty())
                break;
            const SearchTurn turn = i % 2 == game / 2 % 2 ? ChoiceOf(player, record) : dice.OneOf(turns);
            ASSERT_NE(std::find(turns.begin(), turns.end(), turn), turns.end());
            record.Play(turn);
        }
    }
}

TEST_P(EveryLevel, ChoosesTheSameAgainWithTheSameSeed) {
    Dice dice(82);
    Player one(GetParam());
    Player other(GetParam());
    for (std::uint64_t seed = 0; seed < 3; ++seed) {
        const GameRecord record(RandomOrdinaryPosition(dice));
        one.BeginGame(seed);
        other.BeginGame(seed);
        EXPECT_EQ(ChoiceOf(one, record), ChoiceOf(other, record));
    }
}

TEST_P(EveryLevel, GivesNoTurnWhereThereIsNone) {
    Player player(GetParam(), 1);
    EXPECT_TRUE(ChoiceOf(player, RecordOf("turn B | RM 8H | RP 1A | jail BM BM")).IsNone());
}

TEST_P(EveryLevel, AnswersAtOnceWhenItIsStopped) {
    Player player(GetParam(), 1);
    std::stop_source stop;
    stop.request_stop();
    const GameRecord record(computer::StartOf(kImperialBoard));
    const auto result = player.Choose(record.Position(), {}, {}, stop.get_token());
    EXPECT_FALSE(result.turn.IsNone());
    EXPECT_LE(result.nodes, 200'000U);
}

TEST_P(EveryLevel, FromTheSecondOnTakesAWinInOneTurn) {
    const auto record = RecordOf("turn B | BM 1A | BO 4D | BP 7C | RO 4E | RP 7D | RM 2A | jail RM RM BP");
    const std::uint64_t games = GetParam() < 4 ? 40 : 2; // the others leave nothing to chance
    std::uint64_t taken = 0;
    Player player(GetParam());
    for (std::uint64_t seed = 1; seed <= games; ++seed) {
        player.BeginGame(seed);
        taken += WriteTurn(ChoiceOf(player, record)) == "1A-2A" ? 1U : 0U;
    }
    if (GetParam() == computer::kWeakestLevel) {
        EXPECT_GE(taken, 5U);
        EXPECT_LE(taken, 35U);
    } else {
        EXPECT_EQ(taken, games);
    }
}

TEST_P(EveryLevel, FromTheThirdOnSeesALossInOneTurn) {
    if (GetParam() < 3)
        return;
    // Blue's last Master stands beside a Red one; taking the Officer would leave it there.
    const auto record = RecordOf("turn B | BM 1A | BO 4D | BO 6D | RO 4E | RM 1C | RM 8H | jail BM BM RM");
    Player player(GetParam());
    for (std::uint64_t seed = 1; seed <= (GetParam() < 4 ? 20U : 2U); ++seed) {
        player.BeginGame(seed);
        GameRecord next = RecordOf("turn B | BM 1A | BO 4D | BO 6D | RO 4E | RM 1C | RM 8H | jail BM BM RM");
        next.Play(ChoiceOf(player, record));
        const auto replies = ListTurns(next.Rules());
        EXPECT_TRUE(std::none_of(replies.begin(), replies.end(), [&](SearchTurn reply) {
            GameRecord after(*computer::ReadPosition(computer::WritePosition(next.Rules())));
            after.Play(reply);
            return after.Rules().HasLost(Blue);
        }));
    }
}

INSTANTIATE_TEST_SUITE_P(Levels, EveryLevel,
                         testing::Range(computer::kWeakestLevel, computer::kStrongestLevel + 1));

TEST(Levels, WhatThereWasNoTimeToSearchIsJudgedByWhatStandsOnTheBoard) {
    const auto record = RecordOf("turn B | BM 1A | BM 8A | BO 4D | BP 1B | RM 8H | RM 1H | RO 4E | RP 8G");
    for (const std::uint64_t nodes : {1U, 20U, 60U, 100U, 200U}) {
        Player player(4, 1);
        EXPECT_EQ(WriteTurn(player.Choose(record.Position(), {}, {std::nullopt, nodes}).turn), "4D-4E");
    }
}

TEST(Levels, OtherSeedsPlayOtherGames) {
    const GameRecord record(computer::StartOf(kImperialBoard));
    for (int level = 1; level <= 6; ++level) {
        std::vector<std::uint32_t> choices;
        Player player(level);
        for (std::uint64_t seed = 1; seed <= 6; ++seed) {
            player.BeginGame(seed);
            choices.push_back(ChoiceOf(player, record).Bits());
        }
        std::sort(choices.begin(), choices.end());
        EXPECT_GT(std::unique(choices.begin(), choices.end()) - choices.begin(), 1) << "level " << level;
    }
}

} // namespace tarveth::test
