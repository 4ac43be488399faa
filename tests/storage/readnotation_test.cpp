// The reader of the history's lines accepts what the writer writes, and nothing else.
#include "fuzz/notation_property.h"
#include "tests/RecordedPlay.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace tarveth::test {
namespace {

constexpr NamedPiece kRedOfficer{Red, Officer};
constexpr NamedPiece kBluePawn{Blue, Pawn};

TEST(ReadHistoryLine, GivesWhoMovesWhatFromWhereToWhere) {
    EXPECT_EQ(ReadHistoryLine("R:RO 5C-4D"), HistoryLine(MoveLine{Red, kRedOfficer, {5, 3}, {4, 4}, {}}));
    EXPECT_EQ(ReadHistoryLine("B:RM 1A-8H"), HistoryLine(MoveLine{Blue, {Red, Master}, {1, 1}, {8, 8}, {}}));
}

TEST(ReadHistoryLine, GivesWhatIsCaptured) {
    EXPECT_EQ(ReadHistoryLine("R:RO 5C-4D cBP"),
              HistoryLine(MoveLine{Red, kRedOfficer, {5, 3}, {4, 4}, kBluePawn}));
}

TEST(ReadHistoryLine, GivesWhatComesBackAndWhere) {
    EXPECT_EQ(ReadHistoryLine("  BP r2G"), HistoryLine(ReturnLine{kBluePawn, {2, 7}}));
    EXPECT_EQ(ReadHistoryLine("  RO r8A"), HistoryLine(ReturnLine{kRedOfficer, {8, 1}}));
}

TEST(ReadHistoryLine, NamesTheFirstWrongCharacterAndWhatShouldBeThere) {
    const std::vector<std::pair<std::string, NotationFault>> lines{
        {"", {1, "a side, B or R"}},
        {"b:BP 4E-4D", {1, "a side, B or R"}},
        {"B", {2, "a colon behind the side to move"}},
        {"B BP 4E-4D", {2, "a colon behind the side to move"}},
        {"B:GP 4E-4D", {3, "a side, B or R"}},
        {"B:BQ 4E-4D", {4, "a kind of piece, M, O or P"}},
        {"B:BN 4E-4D", {4, "a kind of piece, M, O or P"}},
        {"B:BP4E-4D", {5, "a blank behind the piece"}},
        {"B:BP 0E-4D", {6, "a column, 1 to 8"}},
        {"B:BP 4I-4D", {7, "a row, A to H"}},
        {"B:BP 4E 4D", {8, "a dash between the two squares"}},
        {"B:BP 4E-9D", {9, "a column, 1 to 8"}},
        {"B:BP 4E-4", {10, "a row, A to H"}},
        {"B:BP 4E-4E", {11, "another square than the one that the piece leaves"}},
        {"B:BP 4E-4D ", {12, "the end of the line, or a capture such as \" cBP\""}},
        {"B:BP 4E-4D cRQ", {14, "a kind of piece, M, O or P"}},
        {"B:BP 4E-4D cRP ", {15, "the end of the line"}},
        {" BP r2G", {2, "two blanks before a piece that comes back"}},
        {"  BM r2G", {4, "a kind of piece that comes back, O or P"}},
        {"  BP 2G", {6, "the mark of a return, \" r\""}},
        {"  BP r2G.", {9, "the end of the line"}},
    };
    for (const auto& [line, fault] : lines)
        EXPECT_EQ(ReadHistoryLine(line), HistoryLine(fault)) << line;
}

TEST(ReadHistoryLine, TakesNoLineWithAZeroByteInIt) {
    using namespace std::string_literals;
    for (const std::string& line : {"B:BP 4E-4D\0"s, "\0B:BP 4E-4D"s, "B:BP\0 4E-4D"s})
        EXPECT_TRUE(std::holds_alternative<NotationFault>(ReadHistoryLine(line)));
}

class NotationOfGames : public testing::TestWithParam<std::int16_t> {};

TEST_P(NotationOfGames, IsReadAndWrittenAgainAsItIs) {
    std::size_t lines = 0;
    for (std::uint64_t seed = 1; seed <= 1000; ++seed) {
        RecordedPlay play(GetParam(), seed);
        play.Play(400);
        for (const std::string& line : play.table.game.lstHistory) {
            ASSERT_FALSE(std::holds_alternative<NotationFault>(ReadHistoryLine(line))) << line;
            ASSERT_EQ(NotationFaultOf(line), "");
        }
        lines += play.table.game.lstHistory.size();
    }
    EXPECT_GT(lines, 20'000U);
}

INSTANTIATE_TEST_SUITE_P(Layouts, NotationOfGames, testing::Values(kImperialBoard, kDraumeCrownBoard));

} // namespace
} // namespace tarveth::test
