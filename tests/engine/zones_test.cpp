// Zones of control, the Lost Power rule, and which pieces may be picked.
#include "engine/rules/zones.h"
#include "tests/TestGame.h"

#include <gtest/gtest.h>

#include <string>

namespace tarveth::test {
namespace {

const std::string kNoZone = "Not in a valid zone of control";
const std::string kLostPower = "Can't control opposing pieces (Lost Power rule).";

void ExpectPicked(TestGame& g, std::string_view square) {
    g.Click(square);
    EXPECT_EQ(g.game.GameState, kPlacePiece) << square << ": " << g.port.message;
    EXPECT_EQ(g.game.CurPiece, g.On(square));
}

void ExpectRefused(TestGame& g, std::string_view square, const std::string& text) {
    const int beeps = g.port.beeps;
    g.port.message.clear();
    g.Click(square);
    EXPECT_EQ(g.port.message, text) << square;
    EXPECT_EQ(g.game.GameState, kPickPiece) << square;
    EXPECT_EQ(g.game.CurPiece, 0) << square;
    EXPECT_EQ(g.port.beeps, beeps + (text.empty() ? 0 : 1));
}

// Gives the map as eight rows of eight digits, row 1 first.
std::string MapText(const ZoneMap& map) {
    std::string text;
    for (std::size_t row = 1; row <= 8; ++row) {
        for (std::size_t column = 1; column <= 8; ++column)
            text += map[column][row] == 0 ? '.' : static_cast<char>('0' + map[column][row]);
        text += '\n';
    }
    return text;
}

std::string ZonesOf(std::string_view position) {
    const TestGame g(position);
    ZoneMap map{};
    ComputeZones(g.game, map);
    for (std::size_t i = 0; i <= 8; ++i)
        EXPECT_EQ(map[0][i] + map[i][0], 0) << "column 0 and row 0 stay unused";
    return MapText(map);
}

TEST(Zones, AMasterSkipsTheSquaresOrthogonallyBesideIt) {
    EXPECT_EQ(ZonesOf("turn B | BM 4D"), "........\n"
                                         "...1....\n"
                                         "..1.1...\n"
                                         ".1...1..\n"
                                         "..1.1...\n"
                                         "...1....\n"
                                         "........\n"
                                         "........\n");
}

TEST(Zones, AnOfficerHoldsTheEightSquaresAroundIt) {
    EXPECT_EQ(ZonesOf("turn B | BO 4D"), "........\n"
                                         "........\n"
                                         "..222...\n"
                                         "..2.2...\n"
                                         "..222...\n"
                                         "........\n"
                                         "........\n"
                                         "........\n");
}

TEST(Zones, APawnHoldsNothing) {
    EXPECT_EQ(ZonesOf("turn B | BP 4D").find_first_of("123"), std::string::npos);
}

TEST(Zones, EndAtTheEdgesOfTheBoard) {
    EXPECT_EQ(ZonesOf("turn B | BM 1A | BO 8H"), "..1.....\n"
                                                 ".1......\n"
                                                 "1.......\n"
                                                 "........\n"
                                                 "........\n"
                                                 "........\n"
                                                 "......22\n"
                                                 "......2.\n");
    EXPECT_EQ(ZonesOf("turn B | BO 1H | BM 8A"), ".....1..\n"
                                                 "......1.\n"
                                                 ".......1\n"
                                                 "........\n"
                                                 "........\n"
                                                 "........\n"
                                                 "22......\n"
                                                 ".2......\n");
}

TEST(Zones, WhereAMasterAndAnOfficerMeetTheMasterCountsInEitherOrder) {
    TestGame g("turn B | BM 4D | BO 5D");
    ZoneMap masterFirst{};
    ProjectZone(g.game, masterFirst, 1);
    ProjectZone(g.game, masterFirst, 4);
    ZoneMap officerFirst{};
    ProjectZone(g.game, officerFirst, 4);
    ProjectZone(g.game, officerFirst, 1);
    EXPECT_EQ(masterFirst, officerFirst);
    EXPECT_EQ(masterFirst[5][3], 1);
    EXPECT_EQ(masterFirst[4][3], 2);
}

TEST(Zones, OnlyTheSideToMoveProjects) {
    EXPECT_EQ(ZonesOf("turn R | BM 4D").find_first_of("12"), std::string::npos);
    EXPECT_NE(ZonesOf("turn R | RM 4D").find_first_of("12"), std::string::npos);
}

TEST(Zones, AJailedPieceProjectsNothing) {
    TestGame g("turn B | jail BM");
    for (int column = 1; column <= 8; ++column)
        for (int row = 1; row <= 8; ++row) {
            g.game.Piece(1).X = -column;
            g.game.Piece(1).Y = -row;
            ZoneMap map{};
            ComputeZones(g.game, map);
            EXPECT_EQ(map, ZoneMap{}) << column << ',' << row;
        }
}

TEST(Zones, AnIndexOutsideTheTableProjectsNothing) {
    const TestGame g;
    ZoneMap map{};
    for (const int index : {0, -1, 27, 1000})
        ProjectZone(g.game, map, index);
    ProjectZone(Game{}, map, 1);
    ComputeZones(Game{}, map);
    EXPECT_EQ(map, ZoneMap{});
}

TEST(Zones, PawnRightBesideAMasterIsOutsideItsZoneTwoSquaresOffIsInside) {
    TestGame g("turn B | BM 4D | RP 4E | RP 4F");
    ExpectRefused(g, "4E", kNoZone);
    ExpectPicked(g, "4F");
}

TEST(Zones, PawnRightBesideAMasterIsInsideWhenAnOfficerStandsByIt) {
    TestGame g("turn B | BM 4D | BO 5F | RP 4E");
    ExpectPicked(g, "4E");
}

TEST(Zones, PawnDiagonallyBesideAMasterIsInsideItsZone) {
    TestGame g("turn B | BM 4D | RP 5E");
    ExpectPicked(g, "5E");
}

TEST(Zones, OfficerBesideAnOfficerIsFreeOnAMastersZoneSquareIsNot) {
    TestGame officer("turn B | BO 4D | RO 4E");
    ExpectRefused(officer, "4E", kNoZone);
    TestGame master("turn B | BO 4D | BM 4C | RO 4E");
    ExpectPicked(master, "4E");
}

TEST(Zones, PawnBesideAnOfficerIsControlled) {
    TestGame g("turn B | BO 4D | RP 4E");
    ExpectPicked(g, "4E");
}

TEST(Zones, AMasterIsNeverControlled) {
    TestGame g("turn B | BM 4D | BO 5F | RM 5E | RP 3E");
    ExpectRefused(g, "5E", kNoZone);
    ExpectPicked(g, "3E");
}

TEST(Zones, RedControlsByTheSameRules) {
    TestGame g("turn R | RM 4D | BP 4E | BP 4F");
    ExpectRefused(g, "4E", kNoZone);
    ExpectPicked(g, "4F");
}

TEST(Zones, AnOwnZoneDoesNotHoldForTheOpponent) {
    TestGame g("turn R | BM 4D | RM 1A | BP 5E");
    ExpectRefused(g, "5E", kNoZone);
}

TEST(LostPower, AllFourOfficersInTheJailTakeThePowerOfControl) {
    TestGame g("turn B | BM 4D | BP 1H | RP 5E | jail BO BO BO BO");
    ExpectRefused(g, "5E", kLostPower);
    ExpectPicked(g, "1H");
}

TEST(LostPower, ThreeOfficersInTheJailDoNot) {
    TestGame g("turn B | BM 4D | BO 1A | RP 5E | jail BO BO BO");
    ExpectPicked(g, "5E");
}

TEST(LostPower, AllSixPawnsInTheJailTakeIt) {
    TestGame g("turn B | BM 4D | BO 1A | RP 5E | jail BP BP BP BP BP BP");
    ExpectRefused(g, "5E", kLostPower);
    ExpectPicked(g, "1A");
}

TEST(LostPower, FivePawnsAndThreeOfficersInTheJailDoNot) {
    TestGame g("turn B | BM 4D | BO 1A | BP 1B | RP 5E | jail BP BO BP BO BP BO BP BP");
    ExpectPicked(g, "5E");
}

TEST(LostPower, LostMastersDoNotMatter) {
    TestGame g("turn B | BM 4D | BO 1A | BP 1B | RP 5E | jail BM BM");
    ExpectPicked(g, "5E");
}

TEST(LostPower, TheOpponentsLossesDoNotMatter) {
    TestGame g("turn B | BM 4D | BP 1B | RP 5E | jail RO RO RO RO RP RP RP RP RP");
    ExpectPicked(g, "5E");
}

TEST(LostPower, APieceOutsideTheZoneIsRefusedForItsZoneFirst) {
    TestGame g("turn B | BM 4D | RP 4E | RM 5E | jail BO BO BO BO");
    ExpectRefused(g, "4E", kNoZone);
    ExpectRefused(g, "5E", kNoZone);
}

TEST(PickPiece, AnEmptySquareDoesNothing) {
    TestGame g("turn B | BM 4D");
    g.game.CurPiece = 7;
    ExpectRefused(g, "1A", "");
    EXPECT_EQ(g.port.beeps, 0);
}

TEST(PickPiece, AnOwnPieceIsSelectedAndMarked) {
    TestGame g("turn B | BM 4D");
    ExpectPicked(g, "4D");
    EXPECT_EQ(g.game.SelX, 4);
    EXPECT_EQ(g.game.SelY, 4);
    EXPECT_TRUE(g.port.marker);
    EXPECT_EQ(g.port.prompt, "Place piece");
}

TEST(PickPiece, ARefusalMarksNothing) {
    TestGame g("turn B | BM 4D | RP 4E");
    g.game.SelX = 7;
    ExpectRefused(g, "4E", kNoZone);
    EXPECT_FALSE(g.port.marker);
    EXPECT_EQ(g.game.SelX, 7);
}

TEST(PickPiece, NothingIsPickedWhileAPieceIsMoving) {
    TestGame g("turn B | BM 4D");
    g.game.ClickX = g.game.ClickY = 4;
    g.game.Animating = true;
    g.main.Pass();
    EXPECT_EQ(g.game.GameState, kPickPiece);
    EXPECT_EQ(g.game.CurPiece, 0);
}

TEST(PickPiece, AJailedPieceIsNotPickedFromItsNegativeSquare) {
    TestGame g("turn B | BM 4D | jail BP RP");
    EXPECT_EQ(JudgePick(g.game, {-1, -1}).refusal, PickRefusal::Empty);
    EXPECT_EQ(JudgePick(g.game, {4, 4}).refusal, PickRefusal::None);
}

} // namespace
} // namespace tarveth::test
