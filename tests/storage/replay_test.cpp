// The positions that a saved game has gone through are found from its history.
#include "fuzz/replay_property.h"
#include "storage/replay.h"
#include "tests/RecordedPlay.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarveth::test {
namespace {

// What the rules and the eye know of a position: the squares with who is barred from where, the jail, the
// turn.
std::string LookOf(const Game& game, bool withBars = true) {
    std::string look = game.Turn == Blue ? "B" : "R";
    for (int row = 1; row <= kBoardSize; ++row)
        for (int column = 1; column <= kBoardSize; ++column) {
            const int index = PieceOn(game, {column, row});
            if (index == 0)
                continue;
            const PieceRecord& piece = game.Piece(index);
            look += ' ' + CaptureText(game, index) + SquareText(column, row);
            const Square previous{piece.PrevX, piece.PrevY};
            if (withBars && previous.OnBoard() && !piece.StandsOn(previous))
                look += '<' + SquareText(previous.column, previous.row);
        }
    for (int slot = 1; slot <= game.JailCount(); ++slot)
        look += std::string(" jail ") + SideName(game.Jailed(slot).Side).front() +
                KindName(game.Jailed(slot).Kind).front();
    return look;
}

// The saved game, as it comes back from its file.
Game Loaded(const Game& game) {
    return ParseGame(GameText(game, "a game"), "a.tsg");
}

// How many of the positions that the play went through are found, all of which must be as they were.
int CountFound(const RecordedPlay& play, const Replay& replay, bool fromStart) {
    const Game loaded = Loaded(play.table.game);
    int found = 0;
    for (std::size_t lines = 0; lines <= loaded.lstHistory.size(); ++lines) {
        const auto played = play.positions.find(lines);
        if (!replay.positions.Knows(lines))
            continue;
        ++found;
        if (played == play.positions.end())
            ADD_FAILURE() << "a position in the middle of a turn, behind line " << lines;
        else
            EXPECT_EQ(LookOf(replay.positions.At(lines, loaded), fromStart || lines > 0),
                      LookOf(played->second, fromStart || lines > 0))
                << lines;
    }
    return found;
}

class ReplayedGames : public testing::TestWithParam<std::int16_t> {};

TEST_P(ReplayedGames, GiveEveryPositionThatWasPlayed) {
    for (std::uint64_t seed = 1; seed <= 200; ++seed) {
        RecordedPlay play(GetParam(), seed);
        play.Play(static_cast<int>(seed) * 2);
        const Replay replay = ReplayHistory(Loaded(play.table.game));
        EXPECT_EQ(replay.gap, "");
        ASSERT_EQ(CountFound(play, replay, true), static_cast<int>(play.positions.size())) << seed;
    }
}

TEST_P(ReplayedGames, ThatWereReceivedInTheMiddleGiveWhatLeavesNoChoice) {
    int found = 0;
    int played = 0;
    for (std::uint64_t seed = 1; seed <= 200; ++seed) {
        RecordedPlay play(GetParam(), seed);
        play.Play(20 + static_cast<int>(seed) / 5);
        play.ForgetHistory();
        play.Play(50);
        const Replay replay = ReplayHistory(Loaded(play.table.game));
        found += CountFound(play, replay, false);
        played += static_cast<int>(play.positions.size());
        EXPECT_EQ(replay.gap.empty(), replay.positions.Knows(0)) << replay.gap;
    }
    EXPECT_GT(found, played * 3 / 4);
    RecordProperty("found", found);
    RecordProperty("played", played);
}

INSTANTIATE_TEST_SUITE_P(Layouts, ReplayedGames, testing::Values(kImperialBoard, kDraumeCrownBoard));

// A game of a few turns, from the Imperial Board.
Game ShortGame() {
    TestGame g;
    g.Move("4E", "4D");
    g.Move("5D", "5E");
    g.Move("6E", "6D");
    return Loaded(g.game);
}

TEST(ReplayHistory, OfAGameWithoutLinesIsItsPositionAlone) {
    const TestGame g("turn R | BM 4D | RM 8H");
    const Replay replay = ReplayHistory(g.game);
    EXPECT_TRUE(replay.positions.Knows(0));
    EXPECT_EQ(replay.gap, "");
}

TEST(ReplayHistory, BeginsAtTheStartOfTheLayoutThatTheLinesLeadFrom) {
    const Game game = ShortGame();
    const Replay replay = ReplayHistory(game);
    const TestGame start;
    EXPECT_EQ(LookOf(replay.positions.At(0, game)), LookOf(start.game));
    EXPECT_EQ(LookOf(replay.positions.At(3, game)), LookOf(game));
}

TEST(ReplayHistory, SaysWhichLineIsNone) {
    Game game = ShortGame();
    game.lstHistory[0] = "B:BP 4I-4D";
    const Replay replay = ReplayHistory(game);
    EXPECT_EQ(replay.gap,
              "Line 1 of the history is no move or return (character 7 should be a row, A to H), so "
              "the game before it cannot be shown.");
    EXPECT_FALSE(replay.positions.Knows(1)) << "which piece is barred is not known there";
    EXPECT_TRUE(replay.positions.Knows(2));
    EXPECT_TRUE(replay.positions.Knows(3));
}

TEST(ReplayHistory, SaysWhichLineDoesNotLeadOn) {
    Game game = ShortGame();
    game.lstHistory[1] = "R:RP 5D-5F";
    const Replay replay = ReplayHistory(game);
    EXPECT_EQ(replay.gap,
              "Line 2 of the history does not lead to the position that follows it, so the game before "
              "it cannot be shown.");
    EXPECT_FALSE(replay.positions.Knows(0));
}

TEST(ReplayHistory, FindsTheMovesOfAGameWhosePositionWasEdited) {
    Game game = ShortGame();
    SetPieceSquare(game, 1, 1, 5, 1, 5); // a Master that the lines do not move
    const Replay replay = ReplayHistory(game);
    EXPECT_EQ(replay.gap, "");
    EXPECT_EQ(PieceOn(replay.positions.At(0, game), {1, 5}), 1);
}

TEST(ReplayHistory, DoesNotTakeAHistoryWhoseFirstLinesAreMissingForAWholeGame) {
    Game game = ShortGame();
    game.lstHistory.erase(game.lstHistory.begin());
    const Replay replay = ReplayHistory(game);
    EXPECT_EQ(replay.gap, "");
    EXPECT_EQ(PieceOn(replay.positions.At(0, game), {4, 4}), PieceOn(game, {4, 4}));
}

TEST(ReplayHistory, OfMovesThatTheRulesForbidEndsThere) {
    TestGame g("turn R | BM 4D<4B | RM 8H"); // three squares at most, and not over two
    g.game.lstHistory = {"B:BM 1A-4D"};
    EXPECT_EQ(ReplayHistory(g.game).gap,
              "Line 1 of the history does not lead to the position that follows it, so "
              "the game before it cannot be shown.");
}

TEST(ReplayHistory, KnowsTheTurnOfAReturnThatWasLeftOut) {
    TestGame g("turn B | BM 4D | RO 4C | RM 8H | BP 1H | jail BP");
    g.Move("4D", "4C");
    ASSERT_EQ(g.game.GameState, kReturnPiece);
    g.main.SettleForTransfer(); // as before a board is sent
    g.Move("8H", "8G");
    const Game game = g.game;
    const Replay replay = ReplayHistory(game);
    EXPECT_EQ(replay.gap, "");
    EXPECT_EQ(replay.positions.At(1, game).Turn, Red);
}

TEST(ReplayHistory, SaysWhereAReturnLeavesAChoice) {
    TestGame g("turn R | BM 4C | RM 8H | BP 2G | jail RO RO");
    g.game.lstHistory = {"B:BM 4D-4C cRO", "  BP r2G"};
    for (int slot = 1; slot <= 2; ++slot) { // both may have been captured on that square
        g.game.JailTable[static_cast<std::size_t>(slot)].X = -4;
        g.game.JailTable[static_cast<std::size_t>(slot)].Y = -3;
    }
    EXPECT_EQ(
        ReplayHistory(g.game).gap,
        "Line 2 of the history leaves open which piece of the jail it concerns, so the game before it cannot "
        "be shown.");
}

TEST(ReplayHistory, OfAnyHundredThousandLinesEndsSoon) {
    Game game = ShortGame();
    std::vector<std::string> lines(100'000, "?");
    game.lstHistory = lines;
    EXPECT_FALSE(ReplayHistory(game).gap.empty());
    for (std::size_t i = 0; i < lines.size(); ++i) // two Masters that go back and forth
        lines[i] = std::vector<std::string>{"B:BM 1A-1B", "R:RM 8A-8B", "B:BM 1B-2B", "R:RM 8B-7B",
                                            "B:BM 2B-2A", "R:RM 7B-7A", "B:BM 2A-1A", "R:RM 7A-8A"}[i % 8];
    TestGame g("turn B | BM 1A | RM 8A<7A");
    g.game.lstHistory = lines;
    const Replay replay = ReplayHistory(g.game);
    EXPECT_EQ(replay.gap, "");
    EXPECT_TRUE(replay.positions.Knows(0));
}

} // namespace
} // namespace tarveth::test
