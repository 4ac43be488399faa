// What the search keeps up to date turn by turn is what a fresh look at the board gives.
#include "tests/computer/Positions.h"

#include <gtest/gtest.h>

namespace tarveth::test {

namespace {

using computer::GameRecord;
using computer::SearchPosition;
using computer::SearchTurn;

std::uint64_t KeyOf(std::string_view items) {
    return RecordOf(items).Position().Key();
}

} // namespace

TEST(SearchPosition, KeyAndScoreAreThoseOfAFreshLookAfterEveryTurnOfRandomGames) {
    Dice dice(41);
    for (int game = 0; game < 300; ++game) {
        GameRecord record(RandomPosition(dice));
        for (int i = 0; i < 60 && !record.Rules().IsOver(); ++i) {
            const SearchTurn turn = OneOfItsTurns(record, dice);
            if (turn.IsNone())
                break;
            record.Play(turn);
            const SearchPosition& position = record.Position();
            ASSERT_EQ(position.Key(), position.FreshKey()) << "game " << game << " turn " << i;
            ASSERT_EQ(position.Score(),
                      position.Turn() == Blue ? position.FreshScore() : -position.FreshScore());
        }
    }
}

TEST(SearchPosition, TheSidesSeeTheSameScoreWithOppositeSigns) {
    const auto blue = RecordOf("turn B | BM 4D | BO 1A | RM 8H");
    const auto red = RecordOf("turn R | BM 4D | BO 1A | RM 8H");
    EXPECT_EQ(blue.Position().Score(), -red.Position().Score());
}

TEST(SearchPosition, ABarredSquareIsPartOfTheKeyWhereTheSideToMoveCouldGoThere) {
    // The Red Pawn is under Blue's control, and Blue would move it back.
    EXPECT_NE(KeyOf("turn B | BM 4D | RP 5C<5B | RM 8H"), KeyOf("turn B | BM 4D | RP 5C | RM 8H"));
    // Blue's own Pawn, which Red has just moved under control by one square.
    EXPECT_NE(KeyOf("turn B | BM 8A | BP 5C<5B | RM 8H"), KeyOf("turn B | BM 8A | BP 5C | RM 8H"));
}

TEST(SearchPosition, ABarredSquareIsNoPartOfTheKeyWhereTheSideToMoveCouldNotGoThere) {
    // A Red Pawn out of Blue's zones.
    EXPECT_EQ(KeyOf("turn B | BM 4H | RP 5C<5B | RM 8H"), KeyOf("turn B | BM 4H | RP 5C | RM 8H"));
    // A Pawn that was moved three squares under control goes back one at a time.
    EXPECT_EQ(KeyOf("turn B | BM 8A | BP 5D<5A | RM 8H"), KeyOf("turn B | BM 8A | BP 5D | RM 8H"));
    // Blue has lost the power to control.
    EXPECT_EQ(KeyOf("turn B | BM 4D | RP 5C<5B | RM 8H | jail BO BO BO BO"),
              KeyOf("turn B | BM 4D | RP 5C | RM 8H | jail BO BO BO BO"));
}

TEST(SearchPosition, AnotherSideToMoveAnotherJailOrAnotherSquareIsAnotherKey) {
    const std::uint64_t key = KeyOf("turn B | BM 4D | RM 8H | jail RP");
    EXPECT_NE(key, KeyOf("turn R | BM 4D | RM 8H | jail RP"));
    EXPECT_NE(key, KeyOf("turn B | BM 4D | RM 8H"));
    EXPECT_NE(key, KeyOf("turn B | BM 4D | RM 8H | jail BP"));
    EXPECT_NE(key, KeyOf("turn B | BM 4E | RM 8H | jail RP"));
    EXPECT_NE(key, KeyOf("turn B | BO 4D | RM 8H | jail RP"));
}

TEST(SearchPosition, APassChangesNothingButTheSideToMove) {
    const auto record = RecordOf("turn B | BM 4D | RM 8H");
    SearchPosition position = record.Position();
    position.Pass();
    EXPECT_EQ(position.Key(), KeyOf("turn R | BM 4D | RM 8H"));
}

} // namespace tarveth::test
