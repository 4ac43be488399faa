// The line protocol: what is answered to what, and that garbage loses nothing.
#include "computer/lineprotocol.h"

#include "tests/computer/Positions.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tarveth::test {

namespace {

using computer::LineProtocol;

constexpr std::string_view kImperialStart =
    "..mmm.....ooo....ppopp....p.p......P.P....PPOPP....OOO.....MMM.. 1 - - 0,0,0,0,0,0";

std::string Ask(LineProtocol& protocol, std::string_view line) {
    const auto answer = protocol.Answer(line);
    EXPECT_TRUE(answer.has_value()) << line;
    return answer.value_or("");
}

std::string FirstWord(const std::string& line) {
    return line.substr(0, line.find(' '));
}

// Two Masters alone.
std::string PositionWith(std::string_view jail) {
    return "position M......m" + std::string(56, '.') + " 1 - - " + std::string(jail);
}

} // namespace

TEST(LineProtocol, NewGamesBeginWithTheirLayouts) {
    LineProtocol protocol(6);
    EXPECT_EQ(Ask(protocol, "newgame imperial"), "ok");
    EXPECT_EQ(Ask(protocol, "show"), "position " + std::string(kImperialStart));
    EXPECT_EQ(Ask(protocol, "newgame draume"), "ok");
    EXPECT_EQ(Ask(protocol, "show"),
              "position .momom...ppopp..p..o..p..................P..O..P..PPOPP...MOMOM. 1 - - 0,0,0,0,0,0");
    EXPECT_EQ(FirstWord(Ask(protocol, "newgame round")), "error");
}

TEST(LineProtocol, TurnsArePlayedByWhoeverIsToMove) {
    LineProtocol protocol(6);
    EXPECT_EQ(Ask(protocol, "turn 2C-1C"), "illegal 2C-1C") << "Blue begins";
    EXPECT_EQ(Ask(protocol, "turn 6E-7E"), "ok");
    EXPECT_EQ(Ask(protocol, "turn 7F-8F"), "illegal 7F-8F") << "it is Red's turn";
    EXPECT_EQ(Ask(protocol, "turn 2C-1C"), "ok");
}

TEST(LineProtocol, AnIllegalTurnIsAnsweredSoAndChangesNothing) {
    LineProtocol protocol(6);
    for (const std::string_view turn : {"1A-1B", "", "4E", "4E-4E", "nonsense", "6E-7E+P1A", "9Z-1A"})
        EXPECT_EQ(Ask(protocol, "turn " + std::string(turn)), "illegal " + std::string(turn));
    EXPECT_EQ(Ask(protocol, "show"), "position " + std::string(kImperialStart));
}

TEST(LineProtocol, EveryListedTurnCanBePlayedAndTheBarredSquareIsShown) {
    LineProtocol protocol(6);
    const std::string turns = Ask(protocol, "turns");
    EXPECT_EQ(std::count(turns.begin(), turns.end(), ' '), 44);
    EXPECT_EQ(Ask(protocol, "turn 6E-7E"), "ok");
    EXPECT_EQ(
        Ask(protocol, "show"),
        "position ..mmm.....ooo....ppopp....p.p......P..P...PPOPP....OOO.....MMM.. 2 7E 6E 0,0,0,0,0,0");
}

TEST(LineProtocol, AReturnIsPartOfTheTurn) {
    LineProtocol protocol(6);
    EXPECT_EQ(Ask(protocol, "position Mo.....m" + std::string(56, '.') + " 1 - - 0,0,1,0,0,0"), "ok");
    EXPECT_EQ(Ask(protocol, "turn 1A-2A"), "illegal 1A-2A");
    EXPECT_EQ(Ask(protocol, "turn 1A-2A+O5D"), "illegal 1A-2A+O5D");
    EXPECT_EQ(Ask(protocol, "turn 1A-2A+P1A"), "ok");
    EXPECT_EQ(Ask(protocol, "show"), "position PM.....m" + std::string(56, '.') + " 2 2A 1A 0,0,0,0,1,0");
}

TEST(LineProtocol, PositionsAreReadAsTheyAreShown) {
    Dice dice(91);
    LineProtocol protocol(6);
    for (int i = 0; i < 300; ++i) {
        const computer::GameRecord record(RandomOrdinaryPosition(dice));
        const std::string text = "position " + computer::WritePosition(record.Rules());
        ASSERT_EQ(Ask(protocol, text), "ok") << text;
        ASSERT_EQ(Ask(protocol, "show"), text);
    }
}

TEST(LineProtocol, WhatIsNoPositionIsAnsweredSoAndChangesNothing) {
    LineProtocol protocol(6);
    const std::string start(kImperialStart);
    for (const std::string& text :
         {std::string(), start.substr(1), "x" + start.substr(1), start + " ", start.substr(0, 64),
          start.substr(0, 64) + " 3 - - 0,0,0,0,0,0", start.substr(0, 64) + " 1 1A 1B 0,0,0,0,0,0",
          start.substr(0, 64) + " 1 6E - 0,0,0,0,0,0", start.substr(0, 64) + " 1 - - 1,0,0,0,0,0",
          start.substr(0, 64) + " 1 - - 0,0,0,0,0", start.substr(0, 64) + " 1 - - 0,0,0,0,0,-1",
          start.substr(0, 64) + " 1 - - 0,0,0,0,0,99999999999", std::string(64, 'M') + " 1 - - 0,0,0,0,0,0"})
        EXPECT_EQ(Ask(protocol, "position " + text), "illegal position") << text;
    EXPECT_EQ(Ask(protocol, "show"), "position " + start);
}

TEST(LineProtocol, TellsWhoHasWonAndWhoIsStuck) {
    LineProtocol protocol(6);
    EXPECT_EQ(Ask(protocol, "result"), "result none");
    EXPECT_EQ(Ask(protocol, PositionWith("0,0,0,2,0,0")), "ok");
    EXPECT_EQ(Ask(protocol, "result"), "result none");
    EXPECT_EQ(Ask(protocol, "position M" + std::string(63, '.') + " 2 - - 0,0,0,3,0,0"), "ok");
    EXPECT_EQ(Ask(protocol, "result"), "result blue");
    EXPECT_EQ(Ask(protocol, "go 10"), "bestturn none");
    EXPECT_EQ(Ask(protocol, "turns"), "turns");
    EXPECT_EQ(Ask(protocol, "position m" + std::string(63, '.') + " 1 - - 3,0,0,0,0,0"), "ok");
    EXPECT_EQ(Ask(protocol, "result"), "result red");
    EXPECT_EQ(Ask(protocol, "position p......m" + std::string(56, '.') + " 1 - - 2,0,0,0,0,0"), "ok");
    EXPECT_EQ(Ask(protocol, "result"), "result stuck");
    EXPECT_EQ(Ask(protocol, "go 10"), "bestturn none");
}

TEST(LineProtocol, ATurnThatIsFoundIsLegalAndIsNotPlayed) {
    LineProtocol protocol(6);
    EXPECT_EQ(Ask(protocol, "nodes 2000"), "ok");
    const std::string answer = Ask(protocol, "go 1000");
    ASSERT_EQ(FirstWord(answer), "bestturn");
    EXPECT_EQ(Ask(protocol, "show"), "position " + std::string(kImperialStart));
    const std::string turn = FirstWord(answer.substr(9));
    EXPECT_EQ(Ask(protocol, "turn " + turn), "ok");
}

TEST(LineProtocol, TheSameSeedAndNodesGiveTheSameAnswer) {
    const auto game = [] {
        LineProtocol protocol(6);
        std::string all;
        for (const std::string_view line : {"seed 7", "nodes 3000", "newgame imperial", "go 1"})
            all += Ask(protocol, line);
        return all;
    };
    EXPECT_EQ(game(), game());
}

TEST(LineProtocol, GarbageIsAnErrorAndLosesNothing) {
    LineProtocol protocol(6);
    ASSERT_EQ(Ask(protocol, "turn 6E-7E"), "ok");
    const std::string before = Ask(protocol, "show");
    for (const std::string& line :
         {std::string(), std::string("xyzzy"), std::string("go"), std::string("go soon"),
          std::string("go -1"), std::string("go 99999999999999999999"), std::string("level 0"),
          std::string("level 8"), std::string("level"), std::string("seed x"), std::string("nodes -5"),
          std::string("show me"), std::string(100'000, 'a'), std::string("\0\xff\x01", 3),
          std::string(" show"), std::string("GO 100")})
        EXPECT_EQ(FirstWord(Ask(protocol, line)), "error") << line.substr(0, 40);
    EXPECT_EQ(Ask(protocol, "show"), before);
}

TEST(LineProtocol, LinesMayEndAsWindowsEndsThem) {
    LineProtocol protocol(6);
    EXPECT_EQ(Ask(protocol, "newgame imperial\r"), "ok");
}

TEST(LineProtocol, QuitEndsIt) {
    LineProtocol protocol(6);
    EXPECT_EQ(protocol.Answer("quit"), std::nullopt);
}

} // namespace tarveth::test
