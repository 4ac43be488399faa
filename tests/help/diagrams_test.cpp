// Compares the manual's diagrams with the rules, and tests their form in letters.

#include "engine/rules/moves.h"
#include "engine/rules/positiontext.h"
#include "engine/rules/zones.h"
#include "tools/diagram/diagram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace tarveth::diagram {
namespace {

Diagram Read(const std::string& text) {
    std::istringstream file(text);
    return ReadDiagram(file);
}

Diagram ReadNamed(const std::string& name) {
    std::ifstream file(TARVETH_SOURCE_DIR "/help/diagrams/" + name + ".position");
    return ReadDiagram(file);
}

std::vector<std::string> AllNames() {
    std::vector<std::string> names;
    for (const auto& file : std::filesystem::directory_iterator(TARVETH_SOURCE_DIR "/help/diagrams"))
        names.push_back(file.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

class EveryDiagram : public testing::TestWithParam<std::string> {};

TEST_P(EveryDiagram, MarksMovesAsTheRulesJudgeThem) {
    const Diagram diagram = ReadNamed(GetParam());
    EXPECT_FALSE(diagram.title.empty());
    if (diagram.can.empty() && diagram.cannot.empty())
        return;
    EXPECT_EQ(JudgePick(diagram.game, diagram.piece).refusal, PickRefusal::None);
    const int piece = PieceOn(diagram.game, diagram.piece);
    for (const Square square : diagram.can)
        EXPECT_EQ(JudgeMove(diagram.game, piece, square).refusal, Refusal::None)
            << square.column << ' ' << square.row;
    for (const Square square : diagram.cannot)
        EXPECT_NE(JudgeMove(diagram.game, piece, square).refusal, Refusal::None)
            << square.column << ' ' << square.row;
}

TEST_P(EveryDiagram, DrawsArrowsThatAreMoves) {
    const Diagram diagram = ReadNamed(GetParam());
    for (const auto& [from, to] : diagram.arrows)
        EXPECT_EQ(JudgeMove(diagram.game, PieceOn(diagram.game, from), to).refusal, Refusal::None);
}

INSTANTIATE_TEST_SUITE_P(Manual, EveryDiagram, testing::ValuesIn(AllNames()), [](const auto& info) {
    std::string name = info.param;
    std::erase(name, '-');
    return name;
});

// Every square that the piece may move to must be marked.
TEST(DiagramsOfMoves, AreComplete) {
    for (const char* name :
         {"move-master", "move-officer", "move-pawn", "control-pawn", "reflection-after"}) {
        const Diagram diagram = ReadNamed(name);
        std::size_t legal = 0;
        for (int column = 1; column <= kBoardSize; ++column)
            for (int row = 1; row <= kBoardSize; ++row)
                if (Square{column, row} != diagram.piece &&
                    JudgeMove(diagram.game, PieceOn(diagram.game, diagram.piece), {column, row}).refusal ==
                        Refusal::None)
                    ++legal;
        EXPECT_EQ(diagram.can.size(), legal) << name;
    }
}

TEST(DiagramsOfZones, ShowWhoMayBePicked) {
    const Diagram who = ReadNamed("zone-who");
    for (const char* square : {"3E", "5E", "4F"})
        EXPECT_EQ(JudgePick(who.game, SquareOf(square)).refusal, PickRefusal::None) << square;
    EXPECT_EQ(JudgePick(who.game, SquareOf("4E")).refusal, PickRefusal::NoZone);
    const Diagram lost = ReadNamed("lost-power");
    EXPECT_EQ(JudgePick(lost.game, SquareOf("5E")).refusal, PickRefusal::LostPower);
}

TEST(DiagramInLetters, HasAPieceItsZoneAndMarksInEachSquare) {
    const Diagram diagram =
        Read("title x\nposition turn B | BM 2B | RP 1A | jail BP\nzone 2B\ncan 2C\ncannot 1B\nshow 1A 2C\n");
    const std::vector<std::string> expected = {
        "      1    2 ",  //
        "   +----+----+", //
        " A |#RP#|    |", //
        "   +----+----+", //
        " B |  x | BM |", //
        "   +----+----+", //
        " C |#  #|  o |", //
        "   +----+----+", //
        "   #  in a Master's zone",
        "   o  may go here",
        "   x  may not go here",
        "   in the jail: BP",
    };
    EXPECT_EQ(TextOf(diagram), expected);
}

TEST(DiagramFile, IsRefusedWhenItIsNotUnderstood) {
    EXPECT_THROW(Read("position turn B | BM 4D\nzoom 4D\n"), std::invalid_argument);
    EXPECT_THROW(Read("title nothing on it\n"), std::invalid_argument);
    EXPECT_THROW(Read("position turn B | BM 4D\narrow 4D\n"), std::out_of_range);
}

} // namespace
} // namespace tarveth::diagram
